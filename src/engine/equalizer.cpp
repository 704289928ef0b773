#include "equalizer.h"

#include "equalizer_design.h"
#include "value_scales.h"

#include <algorithm>

namespace tessaly
{

namespace
{

constexpr double kNoValue = -1.0;

} // namespace

bool Equalizer::setParameter (StripParameter parameter, std::int32_t step)
{
    switch (parameter)
    {
    case StripParameter::highFreq:
        highFreq = stepToValue (frequencyHz, step);
        designHigh ();
        return true;
    case StripParameter::highGain:
        highGainDb = gainDb (step);
        designHigh ();
        return true;
    case StripParameter::midFreq:
        midFreq = stepToValue (frequencyHz, step);
        designMid ();
        return true;
    case StripParameter::midGain:
        midGainDb = gainDb (step);
        designMid ();
        return true;
    case StripParameter::midQ:
        midQ = stepToValue (qValue, step);
        designMid ();
        return true;
    case StripParameter::lowFreq:
        lowFreq = stepToValue (frequencyHz, step);
        designLow ();
        return true;
    case StripParameter::lowGain:
        lowGainDb = gainDb (step);
        designLow ();
        return true;
    default:
        return false;
    }
}

void Equalizer::process (double* samples, std::size_t count)
{
    eqLow.process (samples, count);
    eqMid.process (samples, count);
    eqHigh.process (samples, count);
}

bool Equalizer::isPlain () const
{
    return eqLow.isPlain () && eqMid.isPlain () && eqHigh.isPlain () && isFirstOrder (eqLow.plainCoefs ()) &&
           isFirstOrder (eqHigh.plainCoefs ());
}

void Equalizer::gather (Recursions& r)
{
    r.low = eqLow.plainCoefs ();
    r.lowState = eqLow.plainState ();
    r.mid = eqMid.plainCoefs ();
    r.midState = eqMid.plainState ();
    r.high = eqHigh.plainCoefs ();
    r.highState = eqHigh.plainState ();
}

void Equalizer::scatter (const Recursions& r)
{
    eqLow.plainState () = r.lowState;
    eqMid.plainState () = r.midState;
    eqHigh.plainState () = r.highState;
}

void Equalizer::clearState ()
{
    eqLow.clearState ();
    eqMid.clearState ();
    eqHigh.clearState ();
}

void Equalizer::designLow ()
{
    eqLow.setTarget (designLowShelf (sampleRate, lowFreq, lowGainDb, lowSlope, lowMaxDb));
}

void Equalizer::designMid ()
{
    eqMid.setTarget (designPeaking (sampleRate, midFreq, midGainDb, midQ, midSlope, midMaxDb));
}

void Equalizer::designHigh ()
{
    eqHigh.setTarget (designHighShelf (sampleRate, highFreq, highGainDb, highSlope, highMaxDb));
}

void Equalizer::startUp (double newSampleRate)
{
    sampleRate = newSampleRate;
    designLow ();
    designMid ();
    designHigh ();
    eqLow.startUp (newSampleRate);
    eqMid.startUp (newSampleRate);
    eqHigh.startUp (newSampleRate);
}

double Equalizer::responseDb (double frequency, std::int16_t band) const
{
    constexpr double kHighestOfRate = 0.48;
    const double rate = sampleRate;
    const double f = std::min (frequency, kHighestOfRate * rate);
    switch (band)
    {
    case 1:
        return eqLow.responseDb (f, rate);
    case 2:
        return eqMid.responseDb (f, rate);
    case 3:
        return eqHigh.responseDb (f, rate);
    default:
        return eqLow.responseDb (f, rate) + eqMid.responseDb (f, rate) + eqHigh.responseDb (f, rate);
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
