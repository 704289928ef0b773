#pragma once

#include "biquad.h"
#include "fade_weights.h"
#include "recursions.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// One second-order section that changes its coefficients without a click: for 10 ms the old and the new filter both
/// run, and their outputs are blended along a logistic curve,
///     w[i] = 1 / (1 + exp (-10 (i - L/2) / L)),   i = 0 ... N - 1,   L = 0.01 * sampleRate,   N = L truncated
/// from w = 0.0067 to 0.9933; then the new filter runs alone. The new one starts from zero state, the old one rings on.
///
/// A change during a crossfade waits for its end: the owner designs the coefficients then, from its settings at that
/// moment, so of several only the last is heard. The samples run through
/// BlockMath::run, in stretches that end with a crossfade at the latest:
///     if (isSteady () and settings have changed) crossfadeTo (coefs);   gather for up to samplesToGo () samples;   run;   scatter
///
/// Threads: `startUp` during set-up; the rest on the audio thread. No lock, no allocation.
class BlendBiquad
{
public:
    /// Clears the state and runs `coefs` at once, without a crossfade.
    /// @param coefs       not finite: the section keeps its own
    /// @param sampleRate  Hz, above 0; sets the length of later crossfades
    void startUp (const BiquadCoefs& coefs, double sampleRate);

    bool isSteady () const { return fadeCounter >= wholeFadeLength; } ///< no crossfade runs

    /// Begins a crossfade, even to the same coefficients; none may run. @param coefs  not finite: what was there goes on
    void crossfadeTo (const BiquadCoefs& coefs);

    /// How many samples the running crossfade still lasts; without one as many as there are.
    std::size_t samplesToGo () const;

    void gather (BlendedSection& section, FadeWeights& weights) const;
    void scatter (const BlendedSection& section, std::size_t count);

    void clearState (); ///< forgets the sound, of both filters during a crossfade

private:
    BiquadState liveState{};
    BiquadCoefs liveCoefs{}; // of the filter in use, during a crossfade the incoming one
    BiquadState fadingState{};
    BiquadCoefs fadingCoefs{}; // of the outgoing filter
    double fadeLength = 441.0; // L
    std::int32_t wholeFadeLength = 441;
    std::int32_t fadeCounter = 442; // samples done; at or above wholeFadeLength the filter is steady
};

} // namespace tessaly
