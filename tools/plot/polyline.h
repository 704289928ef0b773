#pragma once

#include <vector>

namespace tessaly::plot
{

/// On the page, y downwards.
struct Place
{
    double x = 0.0;
    double y = 0.0;
};

/// The line with fewer corners, nowhere further from it than `tolerance` (D. H. Douglas, T. K. Peucker, "Algorithms for
/// the reduction of the number of points required to represent a digitized line or its caricature", 1973).
std::vector<Place> Simplified (const std::vector<Place>& line, double tolerance);

} // namespace tessaly::plot
