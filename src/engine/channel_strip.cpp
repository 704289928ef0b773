#include "channel_strip.h"

#include "glide.h"
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

} // namespace

Channel_Strip::Channel_Strip (ZEffect* owner)
    : ZOldPluginCore (owner)
{
    glideCoef = glideCoefficient (sampleRate);
}

void Channel_Strip::SetSampleRateOld (double rate)
{
    sampleRate = rate;
    ResumeOld ();
}

void Channel_Strip::ResumeOld ()
{
    glideCoef = glideCoefficient (sampleRate);
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
    const std::int32_t wholeStep = Truncate (static_cast<double> (step));
    if (compressor.setParameter (parameter, wholeStep) || equalizer.setParameter (parameter, wholeStep))
        return;
    switch (parameter)
    {
    case StripParameter::totalGain:
        totalGainTarget = std::pow (10.0, gainDb (wholeStep) / 20);
        break;
    case StripParameter::equalizerBypass:
        eqBypassed = static_cast<std::uint16_t> (wholeStep);
        break;
    case StripParameter::compressorBypass:
        compressorBypassed = static_cast<std::uint16_t> (wholeStep);
        break;
    case StripParameter::bypass:
        bypassTarget = step == 0.0F ? 0.0 : 1.0;
        break;
    default:
        break;
    }
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
    gainReductionMeter.beginBlock (static_cast<std::uint32_t> (n));
    outputMeter.beginBlock (static_cast<std::uint32_t> (n));
    for (std::int32_t i = 0; i < n; ++i)
        out[i] = processSample (in[i]);
}

float Channel_Strip::processSample (float input)
{
    const double dry = input + noise.next ();
    double y = dry;
    if (compressorBypassed == 0)
    {
        y = compressor.process (dry);
        gainReductionMeter.feed (1 / compressor.gain ());
    }
    else
        gainReductionMeter.feed (1.0);

    totalGain = glide (totalGain, totalGainTarget, glideCoef);
    y = y * totalGain;
    if (eqBypassed == 0)
        y = equalizer.process (y);

    bypass = glide (bypass, bypassTarget, glideCoef);
    const auto output = static_cast<float> (y * (1 - bypass) + bypass * dry);
    outputMeter.feed (output);
    return output;
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
