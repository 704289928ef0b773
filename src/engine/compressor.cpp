#include "compressor.h"

#include "detector_floor.h"
#include "equalizer_design.h"
#include "value_scales.h"

#include <algorithm>
#include <cmath>

namespace tessaly
{

Compressor::Compressor (StripSteps& settings)
    : steps (settings)
{
    startUp (sampleRate);
}

/// A negative offset fades out as the threshold of "Drive" nears 0 dB, so that "Drive" 0 is always a threshold of 0.
double Compressor::thresholdDb () const
{
    constexpr double kFadeStartDb = -6.2;
    constexpr double kLowestDb = -54;
    const double drive = driveThreshold (steps[StripParameter::drive]);
    const double offset = driveOffset (steps[StripParameter::driveOffset]);
    const bool fades = offset < 0 && drive >= kFadeStartDb;
    const double sum = fades ? (offset + drive) * drive / kFadeStartDb : drive + offset;
    return std::clamp (sum, kLowestDb, 0.0);
}

double Compressor::slopeOfRatio () const
{
    return 1 - 1 / stepToValue (ratioValue, steps[StripParameter::ratio]);
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
    return designPeaking (sampleRate, stepToValue (frequencyHz, steps[StripParameter::sideChainFreq]),
                          gainDb (steps[StripParameter::sideChainGain]),
                          stepToValue (qValue, steps[StripParameter::sideChainQ]), sideChainSlope, sideChainMaxDb);
}

void Compressor::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    timesAreOld = true;
    steps.take (StripPart::sideChain); // before the design, which has them
    sideChainHighPass.designHighPass (1, newSampleRate, sideChainHighPassFreq);
    glideLaw = GlideLaw (newSampleRate);
    sideChainEq.startUp (sideChainPeak (), newSampleRate);
}

std::size_t Compressor::takeUpSettings ()
{
    if (steps.take (StripPart::dynamics) || timesAreOld)
        workOut ();
    if (sideChainEq.isSteady () && steps.take (StripPart::sideChain))
        sideChainEq.crossfadeTo (sideChainPeak ());
    return sideChainEq.samplesToGo ();
}

void Compressor::workOut ()
{
    timesAreOld = false;
    detectedThresholdDb = thresholdDb ();
    thresholdLinear = thresholdGain (detectedThresholdDb);
    kneeInForce = kneeCurve (detectedThresholdDb, knee ());
    slopeTarget = slopeOfRatio ();
    makeupTarget = makeupGain (-slopeTarget * detectedThresholdDb * makeupAmount (steps[StripParameter::makeupAmount]));
    detector.setTimes (coefOfTime (stepToValue (attackMs, steps[StripParameter::attack])),
                       coefOfTime (stepToValue (releaseMs, steps[StripParameter::release])));
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
