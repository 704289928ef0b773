#pragma once

#include "blend_biquad.h"
#include "block_math.h"
#include "db_to_gain.h"
#include "filter_cascade.h"
#include "gain_computer.h"
#include "glide.h"
#include "level_detector.h"
#include "shared_value.h"
#include "strip_steps.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// Feed-forward compressor with a side chain taken from its own input (first-order high-pass at 10 Hz, then a peaking
/// filter), a knee of three shapes and a makeup gain that follows the threshold:
///     makeup = 10^(-slope * thresholdDb * makeupAmount / 20),   slope = 1 - 1/ratio
/// "Drive" lowers the threshold and so raises the makeup: the level stays and the compression grows.
///
/// What follows from the steps is worked out once a chunk, however many have changed.
///
/// Threads: `compressorCurveDb` any; `startUp` during set-up; the rest on the audio thread.
class Compressor
{
public:
    explicit Compressor (StripSteps& settings); ///< not owned: the strip's, outlives this

    /// Scales the times to the rate and designs the side chain anew, without a crossfade. The detector, the high-pass
    /// and the glides go on from where they are.
    /// @param newSampleRate  Hz, above 0
    void startUp (double newSampleRate);

    /// Takes up the settings as they are now, with a crossfade of the side chain if its own have changed and no
    /// crossfade runs. At the beginning of each chunk. @return how many samples run without another crossfade
    std::size_t takeUpSettings ();

    // For a stretch of that length: gather, run its side chain (BlockMath::run), toLevels, run the detector, applyGains;
    // then scatter. Any stretch may go in pieces, and run together with the recursions of other stages.
    void gather (Recursions& r, FadeWeights& weights) const;
    void scatter (const Recursions& r, std::size_t count);
    void toLevels (const double* sideChain, double* level, std::size_t count) const;
    /// Compresses and makes up `count` samples in place, at most kChunkSamples, by the detector's levels.
    /// @return the smallest gain, linear, without makeup
    double applyGains (const double* level, double* samples, std::size_t count);

    /// Forgets the sound: filters and detector, not the glides.
    void clearState ();

    /// Static curve, on the settings as they are now: the output level for an input level, makeup left out. Both dB.
    double compressorCurveDb (double inputDb) const;

private:
    double thresholdDb () const;
    double slopeOfRatio () const;
    std::uint16_t knee () const { return static_cast<std::uint16_t> (steps[StripParameter::knee]); }
    double coefOfTime (double timeMs) const;
    void workOut ();
    BiquadCoefs sideChainPeak () const;

    static constexpr double sideChainHighPassFreq = 10.0; // Hz
    static constexpr double sideChainSlope = 0.70;
    static constexpr double sideChainMaxDb = 18.0;

    StripSteps& steps;                        // not owned: the strip's
    SharedValue<double> sampleRate = 44100.0; // Hz

    // The audio thread's own.
    FilterCascade sideChainHighPass;
    BlendBiquad sideChainEq;
    LevelDetector detector;
    GlideLaw glideLaw{ 44100.0 };
    GlideRow slope{ 0.0 };    // on its way to slopeTarget
    GlideRow makeup{ 0.0 };   // on its way to makeupTarget
    bool timesAreOld = true;  // the rate has changed since they were worked out in samples
    double slopeTarget = 0.0; // 1 - 1/ratio
    double makeupTarget = 1.0;
    double detectedThresholdDb = 0.0; // in force since takeUpSettings; thresholdLinear is the same
    double thresholdLinear = 1.0;
    KneeCurve kneeInForce{};
    DbToGain makeupGain, thresholdGain;
    const BlockMath& math = blockMath ();
};

} // namespace tessaly
