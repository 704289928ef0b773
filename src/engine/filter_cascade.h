#pragma once

#include "biquad.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// A cascade of second-order sections, followed by a first-order stage if the order is odd. Order 0 passes through.
/// The designs are the bilinear transform with t = tan (pi f / sampleRate), so that the corner lands exactly on f.
/// One thread: designs and `process` must not run at the same time. Only setOrder, and a design that changes the order,
/// allocate.
class FilterCascade
{
public:
    FilterCascade ();

    /// Takes `newOrder` over with all coefficients and state of the sections zero.
    void setOrder (std::uint32_t newOrder);
    void clear ();      ///< zeroes coefficients and state
    void clearState (); ///< zeroes state, keeps the design

    // Designs. One for another order than the present one clears everything first; one for the same order keeps the
    // state, so that a running filter goes on without a jump.

    /// Butterworth high-pass of any order.
    /// @param sampleRate, f  Hz; f above 0 and below half the rate
    void designHighPass (std::uint32_t newOrder, double sampleRate, double f);
    /// Second-order low-pass of quality `q` (above 0; 0.7071 is Butterworth).
    void designLowPass (double sampleRate, double f, double q);
    /// First-order smoother y[n] = k x[n] + (1 - k) y[n-1]
    /// @param k  0 (stands still) to 1 (follows at once)
    void designSmoother (double k);
    /// The smoother with k = 1 - exp (-2 pi f / sampleRate).
    void designSmoother (double sampleRate, double f);

    /// Filters `count` samples in place.
    void process (double* samples, std::size_t count);

    // The first-order stage, to be run elsewhere and put back.
    const BiquadCoefs& firstOrderSection () const { return firstOrderCoefs; }
    const BiquadState& firstOrderSectionState () const { return firstOrderState; }
    void putFirstOrderState (const BiquadState& state) { firstOrderState = state; }

private:
    void requireOrder (std::uint32_t wantedOrder);

    std::vector<BiquadState> sectionState;
    std::vector<BiquadCoefs> sectionCoefs;
    BiquadState firstOrderState{}; // s0 and s2
    BiquadCoefs firstOrderCoefs{}; // c0, c1 and c3: b0, b1 and a1 of y[n] = b0 x[n] + b1 x[n-1] + a1 y[n-1]
    std::uint32_t evenOrder = 0;   // twice the number of sections
    std::uint32_t hasFirstOrderStage = 0;
    std::uint32_t order = 0;
};

} // namespace tessaly
