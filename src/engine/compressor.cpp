#include "compressor.h"

#include "detector_floor.h"
#include "equalizer_design.h"
#include "step_ranges.h"
#include "value_scales.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

/// Of a parameter: the step before one is set, and how many, from 0 up, have a meaning.
struct OwnParameter
{
    std::int32_t initialStep;
    std::uint64_t meaningfulSteps;
};

constexpr std::uint64_t kAnyStep = std::uint64_t{ 1 } << 32; // those below 0, too

constexpr std::array<OwnParameter, Compressor::kOwnParameters> kOwn{ {
    { 0, kAnyStep }, // drive: a threshold of 0 dB
    { StepsOf (StripParameter::attack).init, attackMs.size () },
    { StepsOf (StripParameter::release).init, releaseMs.size () },
    { StepsOf (StripParameter::ratio).init, ratioValue.size () },
    { kMiddleKnee, kAnyStep },
    { StepsOf (StripParameter::driveOffset).init, kAnyStep },
    { StepsOf (StripParameter::makeupAmount).init, kAnyStep },
    { 44, kAnyStep },  // side chain: 200 Hz
    { 180, kAnyStep }, //   0 dB
    { 12, kAnyStep },  //   q of 1
} };

} // namespace

Compressor::Compressor ()
{
    for (std::size_t i = 0; i < kOwnParameters; ++i)
        steps[i] = kOwn[i].initialStep;
    startUp (sampleRate);
}

void Compressor::setParameter (StripParameter parameter, std::int32_t step)
{
    const auto index = static_cast<std::size_t> (parameter);
    if (index >= kOwnParameters || static_cast<std::uint32_t> (step) >= kOwn[index].meaningfulSteps)
        return;
    steps[index] = step;
    if (parameter >= StripParameter::sideChainFreq)
        sideChainEq.change ();
    else
        stepsChanged.store (true, std::memory_order_release);
}

/// A negative offset fades out as the threshold of "Drive" nears 0 dB, so that "Drive" 0 is always a threshold of 0.
double Compressor::thresholdDb () const
{
    constexpr double kFadeStartDb = -6.2;
    constexpr double kLowestDb = -54;
    const double drive = driveThreshold (stepOf (StripParameter::drive));
    const double offset = driveOffset (stepOf (StripParameter::driveOffset));
    const bool fades = offset < 0 && drive >= kFadeStartDb;
    const double sum = fades ? (offset + drive) * drive / kFadeStartDb : drive + offset;
    return std::clamp (sum, kLowestDb, 0.0);
}

double Compressor::slopeOfRatio () const
{
    return 1 - 1 / stepToValue (ratioValue, stepOf (StripParameter::ratio));
}

/// 1 / (time in samples), at most 1.
double Compressor::coefOfTime (double timeMs) const
{
    constexpr double kReferenceRate = 44100;
    const double coefAtReferenceRate = 1 / (timeMs * 0.001 * kReferenceRate);
    return std::min (coefAtReferenceRate * kReferenceRate / sampleRate, 1.0);
}

BiquadCoefs Compressor::sideChainPeak () const
{
    return designPeaking (sampleRate, stepToValue (frequencyHz, stepOf (StripParameter::sideChainFreq)),
                          gainDb (stepOf (StripParameter::sideChainGain)),
                          stepToValue (qValue, stepOf (StripParameter::sideChainQ)), sideChainSlope, sideChainMaxDb);
}

void Compressor::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    stepsChanged.store (true, std::memory_order_release); // the times in samples have
    sideChainHighPass.designHighPass (1, newSampleRate, sideChainHighPassFreq);
    glideLaw = GlideLaw (newSampleRate);
    sideChainEq.startUp (sideChainPeak (), newSampleRate);
}

std::size_t Compressor::takeUpSettings ()
{
    if (stepsChanged.load (std::memory_order_relaxed) && stepsChanged.exchange (false, std::memory_order_acquire))
        workOut ();
    if (sideChainEq.takesChange ())
        sideChainEq.crossfadeTo (sideChainPeak ());
    return sideChainEq.samplesToGo ();
}

void Compressor::workOut ()
{
    detectedThresholdDb = thresholdDb ();
    thresholdLinear = thresholdGain (detectedThresholdDb);
    kneeInForce = kneeCurve (detectedThresholdDb, knee ());
    slopeTarget = slopeOfRatio ();
    makeupTarget =
        makeupGain (-slopeTarget * detectedThresholdDb * makeupAmount (stepOf (StripParameter::makeupAmount)));
    detector.setTimes (coefOfTime (stepToValue (attackMs, stepOf (StripParameter::attack))),
                       coefOfTime (stepToValue (releaseMs, stepOf (StripParameter::release))));
}

void Compressor::gather (Recursions& r, FadeWeights& weights) const
{
    detector.gather (r);
    r.highPass = sideChainHighPass.firstOrderSection ();
    r.highPassState = sideChainHighPass.firstOrderSectionState ();
    sideChainEq.gather (r.sideChainEq, weights);
}

void Compressor::scatter (const Recursions& r, std::size_t count)
{
    detector.scatter (r);
    sideChainHighPass.putFirstOrderState (r.highPassState);
    sideChainEq.scatter (r.sideChainEq, count);
}

/// The input's level does not depend on the detector, so its logarithms are taken ahead of it.
void Compressor::toLevels (const double* sideChain, double* level, std::size_t count) const
{
    math.levels (sideChain, kFloorOfThreshold * thresholdLinear, detectedThresholdDb / 20, level, count);
}

double Compressor::applyGains (const double* level, double* samples, std::size_t count)
{
    double gain[kChunkSamples];
    const double* slopes = slope.next (count, slopeTarget, glideLaw);
    const double smallest = math.gains (level, slopes, kneeInForce, gain, count);
    math.scale (samples, gain, count);
    math.scale (samples, makeup.next (count, makeupTarget, glideLaw), count);
    return smallest;
}

void Compressor::clearState ()
{
    sideChainHighPass.clearState ();
    sideChainEq.clearState ();
    detector.reset ();
}

double Compressor::compressorCurveDb (double inputDb) const
{
    const double threshold = thresholdDb ();
    const double level = std::max (inputDb - threshold, kFloorDb) / 20;
    return inputDb - 20 * slopeOfRatio () * shapedLevel (level, kneeCurve (threshold, knee ()));
}

} // namespace tessaly
