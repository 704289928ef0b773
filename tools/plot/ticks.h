#pragma once

#include "page.h"

#include <vector>

namespace tessaly::plot
{

/// Whole multiples of `step` from the smaller to the larger end, with a real minus sign. @param step  above 0
std::vector<Tick> StepTicks (double first, double last, double step);

/// 20 Hz to 20 kHz: lines at 1, 2, 5 of each decade, "50", "1k".
std::vector<Tick> FrequencyTicks ();

/// At most eight whole steps of time from a start at 0: "0.5"; from a minute on "1:30"; from an hour on "2:00:00".
std::vector<Tick> TimeTicks (double seconds);

/// The title of an axis with such ticks, which says what they are.
std::string TimeTitle (double seconds);

} // namespace tessaly::plot
