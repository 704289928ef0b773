#pragma once

#include "page.h"

#include <vector>

namespace tessaly::plot
{

/// Whole multiples of `step` from the smaller to the larger end, with a real minus sign. @param step  above 0
std::vector<Tick> StepTicks (double first, double last, double step);

/// 20 Hz to 20 kHz: lines at 1, 2, 5 of each decade, "50", "1k".
std::vector<Tick> FrequencyTicks ();

/// At most eight whole steps of seconds, minutes or hours, as "0.5", "30", "1:30", "2:00:00" from a start at 0.
std::vector<Tick> TimeTicks (double seconds);

} // namespace tessaly::plot
