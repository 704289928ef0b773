#pragma once

#include "parameter_records.h"
#include <array>

namespace tessaly
{

/// Converter sets for parameters without a scale of their own; `printf` formats of the C locale.
/// No.        text                                    plain and normalized
///  1 to  6   %10.3f %10.2f %6.2f %5.3f %5.2f %5.1f   linear
///  7 to  9   int16: %d %03d %2d                      whole numbers of 16 bits
/// 10         int32: %d                               whole numbers
/// 11 to 14   %10.3f %5.2f %6.2f %10.2f               logarithmic between minimum and maximum, both above 0
/// 15, 16     %5.2f of p * 10, of p * 9 + 1           linear
/// 17         %5.2f                                   two decades about 1, whatever the range
/// 18         %10.3f above -54, else "[]"             linear
/// 19, 20     %5.2f                                   logarithmic with the normalized value to a power, 0.65 and 1.164
/// The index here is the number less 1.
extern const std::array<ZConverterSet, 20> genericConverterSets;

} // namespace tessaly
