#include "blend_biquad.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace tessaly
{

void BlendBiquad::startUp (double sampleRate)
{
    fadeLength = sampleRate * 10 / 1000;
    wholeFadeLength = static_cast<std::int32_t> (fadeLength);
    fadeCounter = wholeFadeLength + 1;
    liveState = {};
    fadingState = {};
    while (!targetCoefs.tryRead (activeCoefs, activeVersion))
    {
    }
    fadingCoefs = activeCoefs;
}

void BlendBiquad::setTarget (const BiquadCoefs& coefs)
{
    if (isFinite (coefs))
        targetCoefs.write (coefs);
}

void BlendBiquad::process (double* samples, std::size_t count)
{
    while (count > 0)
    {
        if (pending () && isSteady ())
            beginFade ();
        std::size_t run = count;
        if (isSteady ())
        {
            processBiquad (activeCoefs, liveState, samples, run);
        }
        else
        {
            run = std::min (count, static_cast<std::size_t> (wholeFadeLength - fadeCounter));
            for (std::size_t i = 0; i < run; ++i)
                samples[i] = processFade (samples[i]);
        }
        samples += run;
        count -= run;
    }
}

void BlendBiquad::clearState ()
{
    liveState = {};
    fadingState = {};
}

/// Does nothing if a design is just being written: it is still pending at the next sample.
void BlendBiquad::beginFade ()
{
    BiquadCoefs incoming;
    if (!targetCoefs.tryRead (incoming, activeVersion))
        return;
    fadingCoefs = activeCoefs;
    activeCoefs = incoming;
    fadingState = liveState;
    liveState = {};
    fadeCounter = 0;
}

double BlendBiquad::processFade (double x)
{
    constexpr double kSteepness = -10;
    const double w = 1 / (1 + std::exp (kSteepness * (fadeCounter - fadeLength / 2) / fadeLength));
    const double incoming = processBiquad (activeCoefs, liveState, x);
    const double outgoing = processBiquad (fadingCoefs, fadingState, x);
    ++fadeCounter;
    return w * incoming + (1 - w) * outgoing;
}

double BlendBiquad::responseDb (double frequency, double sampleRate) const
{
    constexpr double kNothingDb = -100.0;
    const BiquadCoefs c = targetCoefs.read ();
    const double w = 2 * std::numbers::pi * frequency / sampleRate;
    const std::complex<double> z = std::polar (1.0, w);
    const std::complex<double> H = (c.c0 + c.c1 / z + c.c2 / (z * z)) / (1.0 - c.c3 / z - c.c4 / (z * z));
    const double power = std::norm (H);
    return power > 0 ? 10 * std::log10 (power) : kNothingDb;
}

} // namespace tessaly
