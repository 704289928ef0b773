#pragma once

#include "biquad.h"
#include <cmath>
#include <cstddef>

namespace tessaly
{

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
