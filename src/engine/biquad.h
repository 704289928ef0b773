#pragma once

namespace tessaly
{

// The one definition of a filter section, in direct form 1:
//     y[n] = c0 x[n] + c1 x[n-1] + c2 x[n-2] + c3 y[n-1] + c4 y[n-2]
// Number is double, or a vector of doubles for several sections run at once. The functions are `static` because
// block_math_loops.cpp compiles them for other processors than the rest of the program: no object file may offer its
// copy to another one.

/// Coefficients of one section. In the usual notation b0, b1, b2, -a1, -a2 of a denominator normalized to a0 = 1: the
/// feedback terms are added, so they carry the sign. All zero, as `{}` gives it: silence. A section of first order has c2 = c4 = 0.
template <typename Number>
struct SectionCoefs
{
    Number c0;
    Number c1;
    Number c2;
    Number c3;
    Number c4;
};

/// The last two inputs (s0 the newer) and the last two outputs (s2 the newer) of a section.
template <typename Number>
struct SectionState
{
    Number s0;
    Number s1;
    Number s2;
    Number s3;
};

using BiquadCoefs = SectionCoefs<double>;
using BiquadState = SectionState<double>;

/// One sample through a section of second order. The term of the last output is added last: each sample waits for it
/// alone.
template <typename Number>
static Number throughSecondOrder (const SectionCoefs<Number>& c, SectionState<Number>& s, Number x)
{
    const Number known = c.c2 * s.s1 + (c.c1 * s.s0 + c.c0 * x);
    const Number y = c.c3 * s.s2 + (c.c4 * s.s3 + known);
    s.s1 = s.s0;
    s.s0 = x;
    s.s3 = s.s2;
    s.s2 = y;
    return y;
}

/// One sample through a section of first order.
template <typename Number>
static Number throughFirstOrder (const SectionCoefs<Number>& c, SectionState<Number>& s, Number x)
{
    const Number y = c.c3 * s.s2 + (c.c0 * x + c.c1 * s.s0);
    s.s0 = x;
    s.s2 = y;
    return y;
}

} // namespace tessaly
