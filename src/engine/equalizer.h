#pragma once

#include "blend_biquad.h"
#include "recursions.h"
#include "shared_value.h"
#include "strip_steps.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// Three bands in series: a low shelf, a peak, a high shelf. The audio thread designs a band whose
/// steps have changed when no crossfade of that band runs (any more), however many settings have changed by then.
///
/// Threads: `startUp` during set-up; all reads any; the rest on the audio thread.
class Equalizer
{
public:
    explicit Equalizer (StripSteps& settings); ///< not owned: the strip's, outlives this

    /// Designs all bands anew and clears their state, without a crossfade.
    /// @param newSampleRate  Hz, above 0
    void startUp (double newSampleRate);

    /// Begins the crossfades that have been asked for. @return how many samples run without another one
    std::size_t takeUpDesigns ();

    // For a stretch of that length: gather, run (BlockMath::run), scatter.
    void gather (Recursions& r, FadeWeights& weights) const;
    void scatter (const Recursions& r, std::size_t count);
    void clearState (); ///< forgets the sound

    /// Response of the settings as they are now, dB.
    /// @param frequency  Hz, limited to 0.48 of the sample rate
    /// @param band       1 low, 2 mid, 3 high, any other all three
    double responseDb (double frequency, std::int16_t band) const;

    double bandFrequency (std::int16_t band) const; ///< Hz; band 1 low, 2 mid, 3 high, any other -1
    double bandGain (std::int16_t band) const;      ///< dB; likewise
    double value (StripParameter parameter) const;  ///< Hz, dB or q; -1 if it is none of the equalizer's

private:
    double frequencyOf (StripParameter parameter) const; // Hz
    double gainOf (StripParameter parameter) const;      // dB
    double midQ () const;
    BiquadCoefs lowShelf () const;
    BiquadCoefs midPeak () const;
    BiquadCoefs highShelf () const;

    static constexpr double lowSlope = 0.32;
    static constexpr double lowMaxDb = 18.0;
    static constexpr double midSlope = 0.70;
    static constexpr double midMaxDb = 18.0;
    static constexpr double highSlope = 0.32;
    static constexpr double highMaxDb = 18.0;

    StripSteps& steps;                        // not owned: the strip's
    SharedValue<double> sampleRate = 44100.0; // Hz
    BlendBiquad eqLow;
    BlendBiquad eqMid;
    BlendBiquad eqHigh;
};

} // namespace tessaly
