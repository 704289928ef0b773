#include "polyline.h"

#include <cmath>
#include <utility>

namespace tessaly::plot
{

namespace
{

double DistanceOf (const Place& point, const Place& from, const Place& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::hypot (dx, dy);
    if (length == 0.0)
        return std::hypot (point.x - from.x, point.y - from.y);
    return std::abs (dx * (point.y - from.y) - dy * (point.x - from.x)) / length;
}

} // namespace

std::vector<Place> Simplified (const std::vector<Place>& line, double tolerance)
{
    if (line.size () < 3)
        return line;
    std::vector<bool> kept (line.size (), false);
    kept.front () = kept.back () = true;
    std::vector<std::pair<std::size_t, std::size_t>> stretches{ { 0, line.size () - 1 } };
    while (!stretches.empty ())
    {
        const auto [first, last] = stretches.back ();
        stretches.pop_back ();
        double largest = tolerance;
        std::size_t corner = first;
        for (std::size_t i = first + 1; i < last; ++i)
            if (const double distance = DistanceOf (line[i], line[first], line[last]); distance > largest)
            {
                largest = distance;
                corner = i;
            }
        if (corner == first)
            continue;
        kept[corner] = true;
        stretches.emplace_back (first, corner);
        stretches.emplace_back (corner, last);
    }
    std::vector<Place> corners;
    for (std::size_t i = 0; i < line.size (); ++i)
        if (kept[i])
            corners.push_back (line[i]);
    return corners;
}

} // namespace tessaly::plot
