#include "compressor.h"

#include "equalizer_design.h"
#include "gain_computer.h"
#include "glide.h"
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
    , attackCoef44k (coefAtReferenceRate (stepToValue (attackMs, 221)))
    , releaseCoef44k (coefAtReferenceRate (stepToValue (releaseMs, 164)))
    , driveThresholdDb (driveThreshold (0))
    , driveOffsetDb (driveOffset (100))
    , slopeTarget (1 - 1 / stepToValue (ratioValue, 120))
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
        attackCoef44k = coefAtReferenceRate (stepToValue (attackMs, step));
        scaleTimes ();
        return true;
    case StripParameter::release:
        releaseCoef44k = coefAtReferenceRate (stepToValue (releaseMs, step));
        scaleTimes ();
        return true;
    case StripParameter::ratio:
        slopeTarget = 1 - 1 / stepToValue (ratioValue, step);
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
    makeupTarget = std::pow (10.0, -slopeTarget * thresholdDb * makeupAmount / 20);
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

double Compressor::process (double x)
{
    makeup = glide (makeup, makeupTarget, glideCoef);
    compressSample (x);
    return compressedSample * makeup;
}

void Compressor::compressSample (double x)
{
    const double threshold = thresholdDb;
    const double thresholdLinear = std::pow (10.0, threshold / 20);
    const double s = sideChainEq.process (sideChainHighPass.process (x));
    const double level = detector.detectLevel (s / thresholdLinear, attackCoef, releaseCoef);
    slope = glide (slope, slopeTarget, glideCoef);
    const double shaped = shapedLevel (level, effectiveKnee (threshold, knee));
    compressorGain = compressionGain (shaped, slope);
    compressedSample = x * compressorGain;
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
