#include "ticks.h"

#include "text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessaly::plot
{

namespace
{

constexpr double kMinute = 60.0;
constexpr double kHour = 3600.0;

/// Short numbers: no digits behind the point that are zero.
std::string NumberText (double number, int decimals)
{
    std::string text = ToText (std::abs (number), decimals);
    if (text.find ('.') != std::string::npos)
        text = text.substr (0, text.find_last_not_of ('0') + 1);
    if (text.back () == '.')
        text.pop_back ();
    return number < 0.0 ? "\u2212" + text : text;
}

std::string TwoDigits (long number)
{
    return (number < 10 ? "0" : "") + std::to_string (number);
}

/// All texts of an axis in one form: seconds; minutes and seconds; hours, too.
std::string TimeText (double seconds, double longest)
{
    constexpr int kDecimals = 4;
    if (longest < kMinute)
        return NumberText (seconds, kDecimals);
    const long whole = std::lround (seconds);
    const long minutes = whole / 60;
    if (longest < kHour)
        return std::to_string (minutes) + ":" + TwoDigits (whole % 60);
    return std::to_string (minutes / 60) + ":" + TwoDigits (minutes % 60) + ":" + TwoDigits (whole % 60);
}

double TimeStep (double seconds)
{
    constexpr double kMost = 8.0;
    constexpr std::array kSteps{ 1.0,   2.0,   5.0,    10.0,   15.0,   30.0,    60.0,    120.0,  300.0,
                                 600.0, 900.0, 1800.0, 3600.0, 7200.0, 21600.0, 43200.0, 86400.0 };
    for (double step = 0.0001; step < 1.0; step *= 10.0)
        for (const double factor : { 1.0, 2.0, 5.0 })
            if (seconds <= kMost * step * factor)
                return step * factor;
    const auto* const step = std::ranges::find_if (kSteps, [&] (double each) { return seconds <= kMost * each; });
    return step != kSteps.end () ? *step : std::ceil (seconds / kSteps.back () / kMost) * kSteps.back ();
}

} // namespace

std::vector<Tick> StepTicks (double first, double last, double step)
{
    const auto [low, high] = std::minmax (first, last);
    std::vector<Tick> ticks;
    for (double i = std::ceil (low / step - 1e-9); i * step <= high + step * 1e-9; ++i)
        ticks.push_back ({ i * step, NumberText (i * step, 3) });
    return ticks;
}

std::vector<Tick> FrequencyTicks ()
{
    std::vector<Tick> ticks;
    for (const double hz : { 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0, 5000.0, 10000.0, 20000.0 })
        ticks.push_back ({ hz, hz < 1000.0 ? NumberText (hz, 0) : NumberText (hz / 1000.0, 0) + "k" });
    return ticks;
}

std::vector<Tick> TimeTicks (double seconds)
{
    const double step = TimeStep (seconds);
    std::vector<Tick> ticks;
    for (double i = 0.0; i * step <= seconds * (1.0 + 1e-9); ++i)
        ticks.push_back ({ i * step, TimeText (i * step, seconds) });
    return ticks;
}

std::string TimeTitle (double seconds)
{
    if (seconds < kMinute)
        return "Time, s";
    return seconds < kHour ? "Time, min:s" : "Time, h:min:s";
}

} // namespace tessaly::plot
