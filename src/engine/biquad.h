#pragma once

namespace tessaly
{

/// Coefficients of one second-order section. In the usual notation b0, b1, b2, -a1, -a2 of a denominator normalized to
/// a0 = 1: the feedback terms are added, so they carry the sign. All zero: silence.
struct BiquadCoefs
{
    double c0 = 0.0;
    double c1 = 0.0;
    double c2 = 0.0;
    double c3 = 0.0;
    double c4 = 0.0;
};

/// The last two inputs (s0 the newer) and the last two outputs (s2 the newer) of a section.
struct BiquadState
{
    double s0 = 0.0;
    double s1 = 0.0;
    double s2 = 0.0;
    double s3 = 0.0;
};

} // namespace tessaly
