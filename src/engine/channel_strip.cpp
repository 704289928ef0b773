#include "channel_strip.h"

#include "meter_scales.h"
#include "truncate.h"
#include "value_scales.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr std::int32_t kGainReductionMeter = 0;
constexpr std::int32_t kOutputMeter = 1;

// Hz. At twice its corner and below, the side chain's high-pass would grow without end; far above, samples could not be
// counted in 32 bits.
constexpr double kLowestRate = 20;
constexpr double kHighestRate = 1e9;

/// Of a section's bypass, of whose step 16 bits count.
bool isOn (std::int32_t step)
{
    return static_cast<std::uint16_t> (step) != 0;
}

} // namespace

Channel_Strip::Channel_Strip (ZEffect* owner)
    : ZOldPluginCore (owner)
{
}

void Channel_Strip::SetSampleRateOld (double rate)
{
    if (!(rate > kLowestRate && rate < kHighestRate))
        return; // no rate to design for: the old one goes on
    sampleRate = rate;
    ResumeOld ();
}

void Channel_Strip::ResumeOld ()
{
    glideLaw = GlideLaw (sampleRate);
    compressor.startUp (sampleRate);
    equalizer.startUp (sampleRate);
}

void Channel_Strip::SuspendOld ()
{
    gainReductionMeter.clear ();
    outputMeter.clear ();
    SetMeterDirect (kGainReductionMeter, 0.0F);
    SetMeterDirect (kOutputMeter, 0.0F);
}

std::int32_t Channel_Strip::GetTail ()
{
    constexpr double kTailSeconds = 7.0;
    return Truncate (sampleRate * kTailSeconds);
}

void Channel_Strip::SetParameterOld (std::int32_t index, float step)
{
    const auto parameter = static_cast<StripParameter> (index);
    const bool isSwitch = parameter == StripParameter::bypass; // on for less than a step, too
    steps.set (parameter, isSwitch ? std::int32_t{ step != 0.0F } : Truncate (static_cast<double> (step)));
}

void Channel_Strip::Process (float** in, float** out, std::int32_t n)
{
    if (in != nullptr && out != nullptr && in[0] != nullptr && out[0] != nullptr)
        processChannel (in[0], out[0], n);
    publishMeters ();
}

std::int32_t Channel_Strip::ProcessBlock (ZAudioBlock& block)
{
    if (block.symbolicSampleSize != kFloat32)
        return kFailed;
    if (block.processMode == kOffline)
        ApplyParameterQueue (block.parameterQueue);

    const bool hasChannels = block.numInputChannels > 0 && block.numOutputChannels > 0;
    Process (hasChannels ? block.inputs : nullptr, hasChannels ? block.outputs : nullptr, block.numSamples);
    block.silenceFlags = 0; // the strip's state rings on, so its output always counts as signal
    return kOk;
}

std::int32_t Channel_Strip::ProcessBlockBypassed (ZAudioBlock& block)
{
    return ProcessBlock (block);
}

void Channel_Strip::processChannel (const float* in, float* out, std::int32_t n)
{
    if (n <= 0)
        return;
    gainReductionMeter.beginBlock (static_cast<std::uint32_t> (n));
    outputMeter.beginBlock (static_cast<std::uint32_t> (n));
    bool poisoned = false;
    for (auto left = static_cast<std::size_t> (n); left > 0;)
    {
        const std::size_t count = std::min (left, kChunkSamples);
        poisoned = !processChunk (in, out, count) || poisoned;
        in += count;
        out += count;
        left -= count;
    }
    if (poisoned)
        clearState ();
}

/// Which of the stages are at work in a chunk.
struct Channel_Strip::Stages
{
    bool compress;
    bool equalize;
};

/// @return false if any sample of the input is infinite or NaN
bool Channel_Strip::processChunk (const float* in, float* out, std::size_t count)
{
    double dry[kChunkSamples];
    double y[kChunkSamples];
    const bool finite = math.addNoise (in, noiseState, dry, count);
    std::copy_n (dry, count, y);
    const Stages stages{ .compress = !isOn (steps[StripParameter::compressorBypass]),
                         .equalize = !isOn (steps[StripParameter::equalizerBypass]) };
    double smallestGain = 1.0;
    for (std::size_t at = 0; at < count;)
    {
        const std::size_t length = std::min (takeUpSettings (stages), count - at);
        smallestGain = std::min (smallestGain, processStretch (y + at, length, stages));
        at += length;
    }
    gainReductionMeter.feedHighest (1 / smallestGain, static_cast<std::uint32_t> (count));
    blendBypass (dry, y, count);
    outputMeter.feedHighest (math.roundToOutput (y, out, count), static_cast<std::uint32_t> (count));
    return finite;
}

/// @return how many samples run before a crossfade ends and another one may begin
std::size_t Channel_Strip::takeUpSettings (Stages stages)
{
    std::size_t length = kChunkSamples;
    if (stages.compress)
        length = std::min (length, compressor.takeUpSettings ());
    if (stages.equalize)
        length = std::min (length, equalizer.takeUpDesigns ());
    return length;
}

/// @return the compressor's smallest gain
double Channel_Strip::processStretch (double* y, std::size_t count, Stages stages)
{
    FadeWeights weights (count);
    Recursions r;
    if (stages.compress)
        compressor.gather (r, weights);
    if (stages.equalize)
        equalizer.gather (r, weights);
    double smallestGain = 1.0;
    if (stages.compress)
        smallestGain = runPieces (r, y, count, stages);
    else
    {
        math.scale (y, totalGain.next (count, totalGainTarget (gainDb (steps[StripParameter::totalGain])), glideLaw),
                    count);
        if (stages.equalize)
            math.run (r, nullptr, nullptr, y, count);
    }
    if (stages.compress)
        compressor.scatter (r, count);
    if (stages.equalize)
        equalizer.scatter (r, count);
    return smallestGain;
}

/// All stages at once, each a piece of sound ahead of the next one: while the detector is at one piece, the side chain
/// listens to the next and the equalizer, if it is at work, is at the one before. @return the compressor's smallest gain
double Channel_Strip::runPieces (Recursions& r, double* y, std::size_t count, Stages stages)
{
    static constexpr std::size_t kPiece = 32;
    double sideChain[kChunkSamples];
    double level[kChunkSamples];
    std::copy_n (y, count, sideChain);
    const double gainTarget = totalGainTarget (gainDb (steps[StripParameter::totalGain]));

    const auto lengthAt = [count] (std::size_t at) { return at < count ? std::min (kPiece, count - at) : 0; };
    math.run (r, nullptr, sideChain, nullptr, lengthAt (0));
    double smallestGain = 1.0;
    for (std::size_t at = 0; at < count; at += kPiece)
    {
        const std::size_t length = lengthAt (at);
        const std::size_t next = at + kPiece;
        compressor.toLevels (sideChain + at, level + at, length);
        double* const previousY = stages.equalize && at > 0 ? y + (at - kPiece) : nullptr;
        // The pieces next to this one are as long, but for the last: that one goes alone.
        const bool hasNext = lengthAt (next) == length;
        const bool isWhole = length == kPiece;
        math.run (r, level + at, hasNext ? sideChain + next : nullptr, isWhole ? previousY : nullptr, length);
        if (!hasNext && lengthAt (next) > 0)
            math.run (r, nullptr, sideChain + next, nullptr, lengthAt (next));
        if (!isWhole)
            math.run (r, nullptr, nullptr, previousY, kPiece);
        smallestGain = std::min (smallestGain, compressor.applyGains (level + at, y + at, length));
        math.scale (y + at, totalGain.next (length, gainTarget, glideLaw), length);
    }
    const std::size_t last = (count - 1) / kPiece * kPiece;
    if (stages.equalize)
        math.run (r, nullptr, nullptr, y + last, count - last);
    return smallestGain;
}

void Channel_Strip::blendBypass (const double* dry, double* y, std::size_t count)
{
    const double target = steps[StripParameter::bypass]; // 0 processed, 1 dry
    if (bypass.hasLanded (target) && target == 0.0)
        return;
    double share[kChunkSamples];
    bypass.fill (share, count, target, glideLaw);
    for (std::size_t i = 0; i < count; ++i)
        y[i] = y[i] * (1 - share[i]) + share[i] * dry[i];
}

/// Forgets what a NaN or an infinite sample has left in the filters. It spoils its own block, and no other.
void Channel_Strip::clearState ()
{
    compressor.clearState ();
    equalizer.clearState ();
    gainReductionMeter.clear ();
    outputMeter.clear ();
}

void Channel_Strip::publishMeters ()
{
    const auto gain = std::clamp (static_cast<float> (1 / gainReductionMeter.reading ()), 0.0F, 1.0F);
    SetMeter (kGainReductionMeter, static_cast<float> (1 - gainReductionPosition (gain)));
    SetMeter (kOutputMeter, static_cast<float> (outputPosition (outputMeter.reading ())));
}

double Channel_Strip::eqResponseDb (double frequency, std::int16_t band)
{
    return equalizer.responseDb (frequency, band);
}

double Channel_Strip::eqValue (std::int16_t parameterIndex) const
{
    return equalizer.value (static_cast<StripParameter> (parameterIndex));
}

} // namespace tessaly
