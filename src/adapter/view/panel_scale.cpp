#include "panel_scale.h"

#include "user_settings.h"
#include <algorithm>
#include <cmath>
#include <utility>

namespace tessaly
{

namespace
{

constexpr const char* kName = "scale"; // in the user's settings

double Allowed (double factor) // NaN: 1
{
    if (std::isnan (factor))
        return PanelScale::kLeast;
    const double step = std::round (std::clamp (factor, PanelScale::kLeast, PanelScale::kMost) / PanelScale::kStep);
    return step * PanelScale::kStep;
}

} // namespace

PanelScale::PanelScale ()
    : scale (Allowed (ReadUserSetting (kName).value_or (kLeast)))
{
}

bool PanelScale::Tell (double factor)
{
    told = true;
    const double allowed = Allowed (factor);
    return std::exchange (scale, allowed) != allowed;
}

bool PanelScale::Choose (double factor)
{
    if (told)
        return false;
    const double allowed = Allowed (factor);
    if (std::exchange (scale, allowed) == allowed)
        return false;
    WriteUserSetting (kName, allowed);
    return true;
}

} // namespace tessaly
