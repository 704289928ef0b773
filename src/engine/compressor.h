#pragma once

#include "blend_biquad.h"
#include "block_math.h"
#include "filter_cascade.h"
#include "glide.h"
#include "level_detector.h"
#include "shared_value.h"
#include "strip_parameter.h"

#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// Feed-forward compressor with a side chain taken from its own input (first-order high-pass at 10 Hz, then a peaking
/// filter), a knee of three shapes and a makeup gain that follows the threshold:
///     makeup = 10^(-slope * thresholdDb * makeupAmount / 20),   slope = 1 - 1/ratio
/// "Drive" lowers the threshold and so raises the makeup: the level stays and the compression grows.
///
/// Threads: `setParameter` and `compressorCurveDb` any; `startUp` during set-up; the rest on the audio thread.
class Compressor
{
public:
    Compressor ();

    /// @return false, with nothing changed, if the parameter is none of the compressor's
    bool setParameter (StripParameter parameter, std::int32_t step);

    /// Scales the times to the rate and designs the side chain anew, without a crossfade. The detector, the high-pass
    /// and the glides go on from where they are.
    /// @param newSampleRate  Hz, above 0
    void startUp (double newSampleRate);

    /// Compresses and makes up `count` samples in place, at most kChunkSamples.
    void process (double* samples, std::size_t count);

    // The same in steps, while no crossfade runs, so that its recursions can run beside those of other stages: gather,
    // then for each stretch of sound run the side chain, `toLevels`, run the detector, `applyGains`; then scatter.
    bool isPlain () const { return sideChainEq.isPlain (); }
    void gather (Recursions& r);
    void scatter (const Recursions& r);
    void toLevels (const double* sideChain, double* level, std::size_t count) const;
    /// @return the smallest gain
    double applyGains (const double* level, double* samples, std::size_t count);
    double smallestGain () const { return compressorGain; } ///< linear, of the samples last processed, without makeup

    /// Forgets the sound: filters and detector, not the glides.
    void clearState ();

    /// Static curve, on the settings as they are now: the output level for an input level, makeup left out. Both dB.
    double compressorCurveDb (double inputDb) const;

private:
    void updateThreshold ();
    void updateMakeup ();
    void scaleTimes ();
    void designSideChainEq ();
    void updateDetector ();

    static constexpr double sideChainHighPassFreq = 10.0; // Hz
    static constexpr double sideChainSlope = 0.70;
    static constexpr double sideChainMaxDb = 18.0;

    // Settings, written by setParameter and startUp.
    SharedValue<double> sampleRate = 44100.0; // Hz
    SharedValue<std::uint16_t> knee;
    SharedValue<double> attackCoef44k; // 1 / (attack time in samples) at 44.1 kHz
    SharedValue<double> attackCoef;    // the same at sampleRate, at most 1
    SharedValue<double> releaseCoef44k;
    SharedValue<double> releaseCoef;
    SharedValue<double> driveThresholdDb;
    SharedValue<double> driveOffsetDb;
    SharedValue<double> thresholdDb; // of both; -54 to 0
    SharedValue<double> slopeTarget; // 1 - 1/ratio
    SharedValue<double> makeupTarget = 1.0;
    SharedValue<double> makeupAmount; // 0 to 1
    SharedValue<double> sideChainGainDb = 0.0;
    SharedValue<double> sideChainFreq = 200.0;
    SharedValue<double> sideChainQ = 1.0;

    // The audio thread's own.
    FilterCascade sideChainHighPass;
    BlendBiquad sideChainEq;
    LevelDetector detector;
    double glideCoef = 0.0;
    GlideRow slope{ 0.0 };            // on its way to slopeTarget
    GlideRow makeup{ 0.0 };           // on its way to makeupTarget
    double detectedThresholdDb = 0.0; // in force since updateDetector; thresholdLinear is the same
    double thresholdLinear = 1.0;
    double compressorGain = 1.0;
    const BlockMath& math = blockMath ();
};

} // namespace tessaly
