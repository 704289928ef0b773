#pragma once

#include <cmath>
#include <cstddef>

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

/// One sample through a section in direct form 1:
///     y[n] = c0 x[n] + c1 x[n-1] + c2 x[n-2] + c3 y[n-1] + c4 y[n-2]
inline double processBiquad (const BiquadCoefs& coefs, BiquadState& state, double x)
{
    // The term of the last output comes last: each sample waits for it alone.
    const double y =
        coefs.c0 * x + coefs.c1 * state.s0 + coefs.c2 * state.s1 + coefs.c4 * state.s3 + coefs.c3 * state.s2;
    state = { x, state.s0, y, state.s2 };
    return y;
}

/// Whether the section is of first order: c2 and c4 play no part.
inline bool isFirstOrder (const BiquadCoefs& c)
{
    return c.c2 == 0.0 && c.c4 == 0.0;
}

/// One sample through a section of first order; the older input and output of the state are left as they are.
inline double processFirstOrder (const BiquadCoefs& coefs, BiquadState& state, double x)
{
    const double y = coefs.c0 * x + coefs.c1 * state.s0 + coefs.c3 * state.s2;
    state.s0 = x;
    state.s2 = y;
    return y;
}

/// `count` samples through a section in place, from registers.
inline void processBiquad (const BiquadCoefs& coefs, BiquadState& state, double* samples, std::size_t count)
{
    const BiquadCoefs c = coefs;
    BiquadState s = state;
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = processBiquad (c, s, samples[i]);
    state = s;
}

/// Whether all of it is finite.
inline bool isFinite (const BiquadCoefs& c)
{
    return std::isfinite (c.c0) && std::isfinite (c.c1) && std::isfinite (c.c2) && std::isfinite (c.c3) &&
           std::isfinite (c.c4);
}

} // namespace tessaly
