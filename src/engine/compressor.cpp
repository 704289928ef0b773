#include "compressor.h"

#include "detector_floor.h"
#include "equalizer_design.h"
#include "gain_computer.h"
#include "glide.h"
#include "step_ranges.h"
#include "value_scales.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr double kReferenceRate = 44100;

/// @param timeMs  above 0
double coefAtReferenceRate (double timeMs)
{
    return 1 / (timeMs * 0.001 * kReferenceRate);
}

} // namespace

Compressor::Compressor ()
    : knee (kMiddleKnee)
    , attackCoef44k (coefAtReferenceRate (stepToValue (attackMs, StepsOf (StripParameter::attack).init)))
    , releaseCoef44k (coefAtReferenceRate (stepToValue (releaseMs, StepsOf (StripParameter::release).init)))
    , driveThresholdDb (driveThreshold (0))
    , driveOffsetDb (driveOffset (StepsOf (StripParameter::driveOffset).init))
    , slopeTarget (1 - 1 / stepToValue (ratioValue, StepsOf (StripParameter::ratio).init))
    , makeupAmount (tessaly::makeupAmount (StepsOf (StripParameter::makeupAmount).init))
{
    startUp (sampleRate);
}

void Compressor::setParameter (StripParameter parameter, std::int32_t step)
{
    switch (parameter)
    {
    case StripParameter::drive:
        driveThresholdDb = driveThreshold (step);
        updateThreshold ();
        break;
    case StripParameter::attack:
        if (const double timeMs = stepToValue (attackMs, step); timeMs > 0)
            attackCoef44k = coefAtReferenceRate (timeMs);
        scaleTimes ();
        break;
    case StripParameter::release:
        if (const double timeMs = stepToValue (releaseMs, step); timeMs > 0)
            releaseCoef44k = coefAtReferenceRate (timeMs);
        scaleTimes ();
        break;
    case StripParameter::ratio:
        if (const double ratio = stepToValue (ratioValue, step); ratio >= 1)
            slopeTarget = 1 - 1 / ratio;
        break;
    case StripParameter::knee:
        knee = static_cast<std::uint16_t> (step);
        break;
    case StripParameter::driveOffset:
        driveOffsetDb = driveOffset (step);
        updateThreshold ();
        break;
    case StripParameter::makeupAmount:
        makeupAmount = tessaly::makeupAmount (step);
        break;
    case StripParameter::sideChainFreq:
        sideChainFreq = stepToValue (frequencyHz, step);
        sideChainEq.change ();
        break;
    case StripParameter::sideChainGain:
        sideChainGainDb = gainDb (step);
        sideChainEq.change ();
        break;
    case StripParameter::sideChainQ:
        sideChainQ = stepToValue (qValue, step);
        sideChainEq.change ();
        break;
    default:
        break;
    }
}

/// A negative offset fades out as the threshold of "Drive" nears 0 dB, so that "Drive" 0 is always a threshold of 0.
void Compressor::updateThreshold ()
{
    constexpr double kFadeStartDb = -6.2;
    constexpr double kLowestDb = -54;
    const double drive = driveThresholdDb;
    const double offset = driveOffsetDb;
    const bool fades = offset < 0 && drive >= kFadeStartDb;
    const double sum = fades ? (offset + drive) * drive / kFadeStartDb : drive + offset;
    thresholdDb = std::clamp (sum, kLowestDb, 0.0);
}

void Compressor::scaleTimes ()
{
    attackCoef = std::min (attackCoef44k * kReferenceRate / sampleRate, 1.0);
    releaseCoef = std::min (releaseCoef44k * kReferenceRate / sampleRate, 1.0);
}

BiquadCoefs Compressor::sideChainPeak () const
{
    return designPeaking (sampleRate, sideChainFreq, sideChainGainDb, sideChainQ, sideChainSlope, sideChainMaxDb);
}

void Compressor::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    scaleTimes ();
    sideChainHighPass.designHighPass (1, newSampleRate, sideChainHighPassFreq);
    glideLaw = GlideLaw (newSampleRate);
    sideChainEq.startUp (sideChainPeak (), newSampleRate);
}

std::size_t Compressor::takeUpSettings ()
{
    detectedThresholdDb = thresholdDb;
    thresholdLinear = thresholdGain (detectedThresholdDb);
    makeupTarget = makeupGain (-slopeTarget * detectedThresholdDb * makeupAmount);
    detector.setTimes (attackCoef, releaseCoef);
    if (sideChainEq.takesChange ())
        sideChainEq.crossfadeTo (sideChainPeak ());
    return sideChainEq.samplesToGo ();
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
    const double smallest = math.gains (level, slopes, kneeCurve (detectedThresholdDb, knee), gain, count);
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
    const double threshold = thresholdDb;
    const double level = std::max (inputDb - threshold, kFloorDb) / 20;
    return inputDb - 20 * slopeTarget * shapedLevel (level, kneeCurve (threshold, knee));
}

} // namespace tessaly
