#include "equalizer.h"

#include "biquad_response.h"
#include "equalizer_design.h"
#include "value_scales.h"

#include <algorithm>

namespace tessaly
{

namespace
{

constexpr double kNoValue = -1.0;
constexpr auto kFirstOwn = static_cast<std::size_t> (StripParameter::highFreq);

} // namespace

Equalizer::Equalizer ()
    : steps{ 44, 180, 44, 180, 12, 32, 180 } // high and mid at 200 Hz, low at 100, all at 0 dB, q of 1
{
    startUp (sampleRate);
}

void Equalizer::setParameter (StripParameter parameter, std::int32_t step)
{
    const auto index = static_cast<std::size_t> (parameter) - kFirstOwn; // before the first: beyond the last
    if (index >= kOwnParameters)
        return;
    steps[index] = step;
    if (parameter >= StripParameter::lowFreq)
        eqLow.change ();
    else if (parameter >= StripParameter::midFreq)
        eqMid.change ();
    else
        eqHigh.change ();
}

std::int32_t Equalizer::stepOf (StripParameter parameter) const
{
    return steps[static_cast<std::size_t> (parameter) - kFirstOwn];
}

double Equalizer::frequencyOf (StripParameter parameter) const
{
    return stepToValue (frequencyHz, stepOf (parameter));
}

double Equalizer::gainOf (StripParameter parameter) const
{
    return gainDb (stepOf (parameter));
}

double Equalizer::midQ () const
{
    return stepToValue (qValue, stepOf (StripParameter::midQ));
}

std::size_t Equalizer::takeUpDesigns ()
{
    if (eqLow.takesChange ())
        eqLow.crossfadeTo (lowShelf ());
    if (eqMid.takesChange ())
        eqMid.crossfadeTo (midPeak ());
    if (eqHigh.takesChange ())
        eqHigh.crossfadeTo (highShelf ());
    return std::min ({ eqLow.samplesToGo (), eqMid.samplesToGo (), eqHigh.samplesToGo () });
}

void Equalizer::gather (Recursions& r, FadeWeights& weights) const
{
    eqLow.gather (r.low, weights);
    eqMid.gather (r.mid, weights);
    eqHigh.gather (r.high, weights);
}

void Equalizer::scatter (const Recursions& r, std::size_t count)
{
    eqLow.scatter (r.low, count);
    eqMid.scatter (r.mid, count);
    eqHigh.scatter (r.high, count);
}

void Equalizer::clearState ()
{
    eqLow.clearState ();
    eqMid.clearState ();
    eqHigh.clearState ();
}

BiquadCoefs Equalizer::lowShelf () const
{
    return designLowShelf (sampleRate, frequencyOf (StripParameter::lowFreq), gainOf (StripParameter::lowGain),
                           lowSlope, lowMaxDb);
}

BiquadCoefs Equalizer::midPeak () const
{
    return designPeaking (sampleRate, frequencyOf (StripParameter::midFreq), gainOf (StripParameter::midGain), midQ (),
                          midSlope, midMaxDb);
}

BiquadCoefs Equalizer::highShelf () const
{
    return designHighShelf (sampleRate, frequencyOf (StripParameter::highFreq), gainOf (StripParameter::highGain),
                            highSlope, highMaxDb);
}

void Equalizer::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    eqLow.startUp (lowShelf (), newSampleRate);
    eqMid.startUp (midPeak (), newSampleRate);
    eqHigh.startUp (highShelf (), newSampleRate);
}

double Equalizer::responseDb (double frequency, std::int16_t band) const
{
    constexpr double kHighestOfRate = 0.48;
    const double rate = sampleRate;
    const double f = std::min (frequency, kHighestOfRate * rate);
    switch (band)
    {
    case 1:
        return tessaly::responseDb (lowShelf (), f, rate);
    case 2:
        return tessaly::responseDb (midPeak (), f, rate);
    case 3:
        return tessaly::responseDb (highShelf (), f, rate);
    default:
        return responseDb (f, 1) + responseDb (f, 2) + responseDb (f, 3);
    }
}

double Equalizer::bandFrequency (std::int16_t band) const
{
    switch (band)
    {
    case 1:
        return frequencyOf (StripParameter::lowFreq);
    case 2:
        return frequencyOf (StripParameter::midFreq);
    case 3:
        return frequencyOf (StripParameter::highFreq);
    default:
        return kNoValue;
    }
}

double Equalizer::bandGain (std::int16_t band) const
{
    switch (band)
    {
    case 1:
        return gainOf (StripParameter::lowGain);
    case 2:
        return gainOf (StripParameter::midGain);
    case 3:
        return gainOf (StripParameter::highGain);
    default:
        return kNoValue;
    }
}

double Equalizer::value (StripParameter parameter) const
{
    switch (parameter)
    {
    case StripParameter::highFreq:
    case StripParameter::midFreq:
    case StripParameter::lowFreq:
        return frequencyOf (parameter);
    case StripParameter::highGain:
    case StripParameter::midGain:
    case StripParameter::lowGain:
        return gainOf (parameter);
    case StripParameter::midQ:
        return midQ ();
    default:
        return kNoValue;
    }
}

} // namespace tessaly
