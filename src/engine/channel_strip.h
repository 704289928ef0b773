#pragma once

#include "compressor.h"
#include "db_to_gain.h"
#include "equalizer.h"
#include "glide.h"
#include "noise_generator.h"
#include "old_plugin_core.h"
#include "shared_value.h"
#include "strip_meter.h"
#include "strip_steps.h"

#include <cstdint>

namespace tessaly
{

/// The audio engine: a mono channel strip. Each sample passes, in this order, a tiny noise, the compressor with its
/// makeup, "Total Gain", the equalizer and a blend with the dry input for "Bypass". Settings glide or are crossfaded;
/// only the bypasses of the two stages switch. Double precision inside, float at both ends. Channel 0 is processed.
///
/// Meter 0 is the gain reduction, 0 for none to 1; meter 1 the output level, 0 to 1. Both are published after a block.
///
/// Threads: the process operations on the audio thread; SetParameterOld and all reads on any thread, also during a
/// block; SetSampleRateOld, ResumeOld and SuspendOld during set-up, not while a block is processed.
class Channel_Strip : public ZOldPluginCore
{
public:
    explicit Channel_Strip (ZEffect* owner);

    void SetSampleRateOld (double rate) override; ///< Hz, 20 to 1e9, or it stays; then as ResumeOld
    void ResumeOld () override;                   ///< designs everything anew and clears the equalizer, no crossfade
    void SuspendOld () override;                  ///< clears the meters
    std::int32_t GetTail () override;             ///< seven seconds, in samples

    /// Sets a parameter by its plain value: a step, truncated to a whole number. "Bypass" is on for any but 0.
    /// An unknown index, and "Morph", which is no setting of the engine, change nothing.
    /// @param step  in the parameter's range, which the caller keeps; a time, ratio or quality of 0 has no meaning
    void SetParameterOld (std::int32_t index, float step) override;

    /// Without channels (null pointers) or samples only the meters are published.
    void Process (float** in, float** out, std::int32_t n) override;
    std::int32_t ProcessBlock (ZAudioBlock& block) override;
    std::int32_t ProcessBlockBypassed (ZAudioBlock& block) override; ///< the strip has a bypass of its own

    /// What the equalizer's settings do at a frequency (Hz), in dB.
    /// @param band  1 low, 2 mid, 3 high, any other all three
    virtual double eqResponseDb (double frequency, std::int16_t band);

    double bandFrequency (std::int16_t band) const { return equalizer.bandFrequency (band); } ///< Hz; -1: no such band
    double bandGain (std::int16_t band) const { return equalizer.bandGain (band); }           ///< dB; -1: no such band
    double eqValue (std::int16_t parameterIndex) const; ///< indexes 10 to 16, else -1
    double compressorCurveDb (double inputDb) const { return compressor.compressorCurveDb (inputDb); }

private:
    void processChannel (const float* in, float* out, std::int32_t n);
    bool processChunk (const float* in, float* out, std::size_t count);
    struct Stages;
    std::size_t takeUpSettings (Stages stages);
    double processStretch (double* y, std::size_t count, Stages stages);
    double runPieces (Recursions& r, double* y, std::size_t count, Stages stages);
    void blendBypass (const double* dry, double* y, std::size_t count);
    void clearState ();
    void publishMeters ();

    // Settings, written by SetParameterOld.
    SharedValue<double> sampleRate = 44100.0; // Hz
    StripSteps steps;

    Compressor compressor{ steps };
    Equalizer equalizer{ steps };

    // The audio thread's own.
    std::uint32_t noiseState = kNoiseSeed;
    GlideLaw glideLaw{ 44100.0 };
    DbToGain totalGainTarget;
    GlideRow totalGain{ 1.0 };
    Glide bypass{ 0.0 };
    const BlockMath& math = blockMath ();
    StripMeter gainReductionMeter; // of 1/gain, 1 and up
    StripMeter outputMeter;
};

} // namespace tessaly
