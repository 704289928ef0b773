#include "meter_fade.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

/// About the last bit of 1.0f: without it, what a float loses in the sum would leave the fade unfinished.
constexpr double kNudge = 1.2e-07;

} // namespace

bool MeterFade::SetWanted (bool on)
{
    if (on == wanted)
        return false;
    wanted = on;
    return true;
}

void MeterFade::StartOut ()
{
    active = true;
    target = 0.0f;
    level = 1.0f;
}

void MeterFade::StartIn ()
{
    active = false;
    target = 1.0f;
    level = 0.0f;
}

void MeterFade::Step ()
{
    if (!active)
        return;
    static const double share = 1.0 - std::exp (-0.1);
    const auto difference = static_cast<double> (target) - level;
    const auto next = level + difference * share;
    level = difference > 0.0 ? std::min (static_cast<float> (next + kNudge), target)
                             : std::max (static_cast<float> (next - kNudge), target);
}

} // namespace tessaly
