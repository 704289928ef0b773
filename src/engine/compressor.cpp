#include "compressor.h"

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
    , driveOffsetDb (driveOffset (100))
    , slopeTarget (1 - 1 / stepToValue (ratioValue, StepsOf (StripParameter::ratio).init))
    , makeupAmount (tessaly::makeupAmount (100))
{
    startUp (sampleRate);
}

bool Compressor::setParameter (StripParameter parameter, std::int32_t step)
{
    switch (parameter)
    {
    case StripParameter::drive:
        driveThresholdDb = driveThreshold (step);
        updateThreshold ();
        updateMakeup ();
        return true;
    case StripParameter::attack:
        if (const double timeMs = stepToValue (attackMs, step); timeMs > 0)
            attackCoef44k = coefAtReferenceRate (timeMs);
        scaleTimes ();
        return true;
    case StripParameter::release:
        if (const double timeMs = stepToValue (releaseMs, step); timeMs > 0)
            releaseCoef44k = coefAtReferenceRate (timeMs);
        scaleTimes ();
        return true;
    case StripParameter::ratio:
        if (const double ratio = stepToValue (ratioValue, step); ratio >= 1)
            slopeTarget = 1 - 1 / ratio;
        updateMakeup ();
        return true;
    case StripParameter::knee:
        knee = static_cast<std::uint16_t> (step);
        return true;
    case StripParameter::driveOffset:
        driveOffsetDb = driveOffset (step);
        updateThreshold ();
        updateMakeup ();
        return true;
    case StripParameter::makeupAmount:
        makeupAmount = tessaly::makeupAmount (step);
        updateMakeup ();
        return true;
    case StripParameter::sideChainFreq:
        sideChainFreq = stepToValue (frequencyHz, step);
        designSideChainEq ();
        return true;
    case StripParameter::sideChainGain:
        sideChainGainDb = gainDb (step);
        designSideChainEq ();
        return true;
    case StripParameter::sideChainQ:
        sideChainQ = stepToValue (qValue, step);
        designSideChainEq ();
        return true;
    default:
        return false;
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

void Compressor::updateMakeup ()
{
    const double target = std::pow (10.0, -slopeTarget * thresholdDb * makeupAmount / 20);
    if (std::isfinite (target))
        makeupTarget = target;
}

void Compressor::scaleTimes ()
{
    attackCoef = std::min (attackCoef44k * kReferenceRate / sampleRate, 1.0);
    releaseCoef = std::min (releaseCoef44k * kReferenceRate / sampleRate, 1.0);
}

void Compressor::designSideChainEq ()
{
    sideChainEq.setTarget (
        designPeaking (sampleRate, sideChainFreq, sideChainGainDb, sideChainQ, sideChainSlope, sideChainMaxDb));
}

void Compressor::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    scaleTimes ();
    sideChainHighPass.designHighPass (1, newSampleRate, sideChainHighPassFreq);
    glideCoef = glideCoefficient (newSampleRate);
    designSideChainEq ();
    sideChainEq.startUp (newSampleRate);
}

void Compressor::process (double* samples, std::size_t count)
{
    double sideChain[kChunkSamples];
    double level[kChunkSamples];
    updateDetector ();
    std::copy_n (samples, count, sideChain);
    sideChainHighPass.process (sideChain, count);
    sideChainEq.process (sideChain, count);
    toLevels (sideChain, level, count);
    detector.follow (level, count);
    compressorGain = applyGains (level, samples, count);
}

void Compressor::updateDetector ()
{
    const double threshold = thresholdDb;
    if (threshold != detectedThresholdDb)
    {
        detectedThresholdDb = threshold;
        thresholdLinear = std::pow (10.0, threshold / 20);
    }
    detector.setTimes (attackCoef, releaseCoef);
}

void Compressor::gather (Recursions& r)
{
    updateDetector ();
    detector.gather (r);
    r.highPass = sideChainHighPass.firstOrderSection ();
    r.highPassState = sideChainHighPass.firstOrderSectionState ();
    r.sideChainEq = sideChainEq.plainCoefs ();
    r.sideChainEqState = sideChainEq.plainState ();
}

void Compressor::scatter (const Recursions& r)
{
    detector.scatter (r);
    sideChainHighPass.putFirstOrderState (r.highPassState);
    sideChainEq.plainState () = r.sideChainEqState;
}

/// The input's level does not depend on the detector, so its logarithms are taken ahead of it.
void Compressor::toLevels (const double* sideChain, double* level, std::size_t count) const
{
    constexpr double kFloor = 0.0316; // of the threshold
    math.levels (sideChain, kFloor * thresholdLinear, detectedThresholdDb / 20, level, count);
}

double Compressor::applyGains (const double* level, double* samples, std::size_t count)
{
    double gain[kChunkSamples];
    const double* slopes = slope.next (count, slopeTarget, glideCoef);
    const KneeCurve curve = kneeCurve (effectiveKnee (detectedThresholdDb, knee));
    const double smallest = math.gains (level, slopes, curve.halfWidth, curve.curvature, gain, count);
    math.scale (samples, gain, count);
    math.scale (samples, makeup.next (count, makeupTarget, glideCoef), count);
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
    constexpr double kLowestDb = -30;
    const double threshold = thresholdDb;
    const double level = std::max (inputDb - threshold, kLowestDb) / 20;
    const double shaped = shapedLevel (level, effectiveKnee (threshold, knee));
    return inputDb + 20 * std::log10 (compressionGain (shaped, slopeTarget));
}

} // namespace tessaly
