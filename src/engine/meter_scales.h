#pragma once

#include <array>

namespace tessaly
{

// Positions of the meters' lamps. Each scale lists the linear levels, rising, at which one more lamp lights up:
// 10^(dB/20) rounded to ten decimals, of hand-picked dB values.

// clang-format off

/// -24 dB to 0 dB: by 2 to -18, by 1 to -9, by 0.5 to -6, then by thirds.
inline constexpr std::array<double, 37> kGainReductionScale {
    0.0630957344, 0.0794328235, 0.1000000000, 0.1258925412, 0.1412537545, 0.1584893192, 0.1778279410, 0.1995262315,
    0.2238721139, 0.2511886432, 0.2818382931, 0.3162277660, 0.3548133892, 0.3758374043, 0.3981071706, 0.4216965034,
    0.4466835922, 0.4731512590, 0.5011872336, 0.5208348069, 0.5411902951, 0.5623413252, 0.5843862650, 0.6072254984,
    0.6309573445, 0.6556921737, 0.6813182151, 0.7079457844, 0.7356987193, 0.7644516106, 0.7943282347, 0.8254675398,
    0.8577288145, 0.8912509381, 0.9261898131, 0.9623875587, 1.0000000000
};

/// -63 dB to -3 dB: by 3 or 4 to -30, by 2 to -18, then by 1; the last entry is full scale but for 1e-10.
inline constexpr std::array<double, 33> kOutputScale {
    0.0007079458, 0.0010000000, 0.0015848932, 0.0022387211, 0.0031622777, 0.0050118723, 0.0070794578, 0.0100000000,
    0.0158489319, 0.0223872114, 0.0316227766, 0.0398107171, 0.0501187234, 0.0630957344, 0.0794328235, 0.1000000000,
    0.1258925412, 0.1412537545, 0.1584893192, 0.1778279410, 0.1995262315, 0.2238721139, 0.2511886432, 0.2818382931,
    0.3162277660, 0.3548133892, 0.3981071706, 0.4466835922, 0.5011872336, 0.5623413252, 0.6309573445, 0.7079457844,
    0.9999999999
};

// clang-format on

/// @param gain  linear, 0 to 1, of the compressor
/// @return 0 at -24 dB and below, to 1 at no reduction, in 36 steps
double gainReductionPosition (double gain);

/// @param level  linear, 0 and up
/// @return 0 below -63 dB, to 1 at full scale and above, in 34 steps
double outputPosition (double level);

} // namespace tessaly
