#pragma once

#include "biquad_process.h"
#include "published_coefs.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// One second-order section that changes its coefficients without a click: for 10 ms the old and the new filter run
/// side by side, and their outputs are blended along a logistic curve,
///     w[i] = 1 / (1 + exp (-10 (i - L/2) / L)),   i = 0 ... N - 1,   L = 0.01 * sampleRate,   N = L truncated
/// from w = 0.0067 to 0.9933; then the new filter runs alone. The new one starts from zero state, the old one rings on.
/// A design that arrives during a crossfade waits for its end, and of several only the last is heard.
///
/// `startUp` and `process` belong to the audio side, which never waits and allocates nothing; `setTarget` and
/// `responseDb` may run on any thread at any time.
class BlendBiquad
{
public:
    /// Makes `coefs` the filter to change to; a crossfade follows even if they are the present ones. A set with
    /// anything that is not finite is not taken up: what was there goes on.
    void setTarget (const BiquadCoefs& coefs);

    /// Clears the state and takes the target up at once, without a crossfade.
    /// @param sampleRate  Hz, above 0; sets the length of later crossfades
    void startUp (double sampleRate);

    /// Filters `count` samples in place.
    void process (double* samples, std::size_t count);

    /// Whether nothing but one section runs, and no design waits.
    bool isPlain () const { return isSteady () && !pending (); }
    const BiquadCoefs& plainCoefs () const { return activeCoefs; }
    BiquadState& plainState () { return liveState; }

    /// Forgets the sound, of both filters during a crossfade.
    void clearState ();

    /// Magnitude of the target's response in dB, before any crossfade to it has run; -100 where nothing passes.
    /// @param frequency, sampleRate  Hz
    double responseDb (double frequency, double sampleRate) const;

private:
    bool pending () const { return targetCoefs.version () != activeVersion; }
    bool isSteady () const { return fadeCounter >= wholeFadeLength; }
    void beginFade ();
    double processFade (double x);

    PublishedCoefs targetCoefs;
    std::uint32_t activeVersion = PublishedCoefs::kNoVersion; // the set of targetCoefs that activeCoefs was copied from

    // The audio side's own: a design in progress on another thread is never heard half-written.
    BiquadState liveState;
    BiquadCoefs activeCoefs; // of the filter in use, during a crossfade the incoming one
    BiquadState fadingState;
    BiquadCoefs fadingCoefs; // of the outgoing filter
    double fadeLength = 441.0;
    std::int32_t wholeFadeLength = 441;
    std::int32_t fadeCounter = 442; // samples done; at or above wholeFadeLength the filter is steady
};

} // namespace tessaly
