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

    /// The same, and hands each sample on to `next`, whose result takes its place: two filters in one loop, so that the
    /// processor works on one while the other waits for its last output.
    template <typename Next>
    void process (double* samples, std::size_t count, Next next);

private:
    /// y[n] = b0 x[n] + b1 x[n-1] + a1 y[n-1]; a1 is added, as in the sections.
    struct FirstOrderCoefs
    {
        double b0 = 0.0;
        double b1 = 0.0;
        double a1 = 0.0;
    };
    struct FirstOrderState
    {
        double x1 = 0.0;
        double y1 = 0.0;
    };

    void requireOrder (std::uint32_t wantedOrder);

    std::vector<BiquadState> sectionState;
    std::vector<BiquadCoefs> sectionCoefs;
    FirstOrderState firstOrderState;
    FirstOrderCoefs firstOrderCoefs;
    std::uint32_t evenOrder = 0; // twice the number of sections
    std::uint32_t hasFirstOrderStage = 0;
    std::uint32_t order = 0;
};

template <typename Next>
void FilterCascade::process (double* samples, std::size_t count, Next next)
{
    for (std::size_t k = 0; k < sectionCoefs.size (); ++k)
        processBiquad (sectionCoefs[k], sectionState[k], samples, count);
    // Without the first-order stage its coefficients pass the sample on.
    const FirstOrderCoefs c = hasFirstOrderStage != 0 ? firstOrderCoefs : FirstOrderCoefs{ 1.0, 0.0, 0.0 };
    FirstOrderState s = firstOrderState;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double x = samples[i];
        s = { x, c.b0 * x + c.b1 * s.x1 + c.a1 * s.y1 };
        samples[i] = next (s.y1);
    }
    firstOrderState = s;
}

} // namespace tessaly
