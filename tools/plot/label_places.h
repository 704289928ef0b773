#pragma once

#include <vector>

namespace tessaly::plot
{

/// Where to put labels one below the other that would like to stand at `wanted`, so that none overlaps another: in
/// their order, as near as that allows, within `first` to `last`.
/// @param distance  of two labels at least; less, all of them even, where there is no room for that
std::vector<double> LabelPlaces (const std::vector<double>& wanted, double distance, double first, double last);

} // namespace tessaly::plot
