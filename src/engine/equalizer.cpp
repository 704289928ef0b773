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

} // namespace

Equalizer::Equalizer (StripSteps& settings)
    : steps (settings)
{
    startUp (sampleRate);
}

double Equalizer::frequencyOf (StripParameter parameter) const
{
    return stepToValue (frequencyHz, steps[parameter]);
}

double Equalizer::gainOf (StripParameter parameter) const
{
    return gainDb (steps[parameter]);
}

double Equalizer::midQ () const
{
    return stepToValue (qValue, steps[StripParameter::midQ]);
}

std::size_t Equalizer::takeUpDesigns ()
{
    if (eqLow.isSteady () && steps.take (StripPart::lowBand))
        eqLow.crossfadeTo (lowShelf ());
    if (eqMid.isSteady () && steps.take (StripPart::midBand))
        eqMid.crossfadeTo (midPeak ());
    if (eqHigh.isSteady () && steps.take (StripPart::highBand))
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
    for (const auto band : { StripPart::lowBand, StripPart::midBand, StripPart::highBand })
        steps.take (band); // before the designs, which have them
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
