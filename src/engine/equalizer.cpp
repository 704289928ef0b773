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

void Equalizer::setParameter (StripParameter parameter, std::int32_t step)
{
    switch (parameter)
    {
    case StripParameter::highFreq:
        highFreq = stepToValue (frequencyHz, step);
        eqHigh.change ();
        break;
    case StripParameter::highGain:
        highGainDb = gainDb (step);
        eqHigh.change ();
        break;
    case StripParameter::midFreq:
        midFreq = stepToValue (frequencyHz, step);
        eqMid.change ();
        break;
    case StripParameter::midGain:
        midGainDb = gainDb (step);
        eqMid.change ();
        break;
    case StripParameter::midQ:
        midQ = stepToValue (qValue, step);
        eqMid.change ();
        break;
    case StripParameter::lowFreq:
        lowFreq = stepToValue (frequencyHz, step);
        eqLow.change ();
        break;
    case StripParameter::lowGain:
        lowGainDb = gainDb (step);
        eqLow.change ();
        break;
    default:
        break;
    }
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
    return designLowShelf (sampleRate, lowFreq, lowGainDb, lowSlope, lowMaxDb);
}

BiquadCoefs Equalizer::midPeak () const
{
    return designPeaking (sampleRate, midFreq, midGainDb, midQ, midSlope, midMaxDb);
}

BiquadCoefs Equalizer::highShelf () const
{
    return designHighShelf (sampleRate, highFreq, highGainDb, highSlope, highMaxDb);
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
        return lowFreq;
    case 2:
        return midFreq;
    case 3:
        return highFreq;
    default:
        return kNoValue;
    }
}

double Equalizer::bandGain (std::int16_t band) const
{
    switch (band)
    {
    case 1:
        return lowGainDb;
    case 2:
        return midGainDb;
    case 3:
        return highGainDb;
    default:
        return kNoValue;
    }
}

double Equalizer::value (StripParameter parameter) const
{
    switch (parameter)
    {
    case StripParameter::highFreq:
        return highFreq;
    case StripParameter::highGain:
        return highGainDb;
    case StripParameter::midFreq:
        return midFreq;
    case StripParameter::midGain:
        return midGainDb;
    case StripParameter::midQ:
        return midQ;
    case StripParameter::lowFreq:
        return lowFreq;
    case StripParameter::lowGain:
        return lowGainDb;
    default:
        return kNoValue;
    }
}

} // namespace tessaly
