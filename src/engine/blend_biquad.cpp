#include "blend_biquad.h"

#include <cmath>
#include <limits>

namespace tessaly
{

namespace
{

bool isFinite (const BiquadCoefs& c)
{
    return std::isfinite (c.c0) && std::isfinite (c.c1) && std::isfinite (c.c2) && std::isfinite (c.c3) &&
           std::isfinite (c.c4);
}

} // namespace

void BlendBiquad::startUp (const BiquadCoefs& coefs, double sampleRate)
{
    fadeLength = sampleRate * 10 / 1000;
    wholeFadeLength = static_cast<std::int32_t> (fadeLength);
    fadeCounter = wholeFadeLength + 1;
    if (isFinite (coefs))
        liveCoefs = coefs;
    clearState ();
}

void BlendBiquad::crossfadeTo (const BiquadCoefs& coefs)
{
    if (!isFinite (coefs))
        return;
    fadingCoefs = liveCoefs;
    liveCoefs = coefs;
    fadingState = liveState;
    liveState = {};
    fadeCounter = 0;
}

std::size_t BlendBiquad::samplesToGo () const
{
    return isSteady () ? std::numeric_limits<std::size_t>::max ()
                       : static_cast<std::size_t> (wholeFadeLength - fadeCounter);
}

void BlendBiquad::gather (BlendedSection& section, FadeWeights& weights) const
{
    section.live = liveCoefs;
    section.liveState = liveState;
    if (isSteady ())
        return;
    section.fading = fadingCoefs;
    section.fadingState = fadingState;
    section.weight = weights.row (fadeCounter, fadeLength);
}

void BlendBiquad::scatter (const BlendedSection& section, std::size_t count)
{
    liveState = section.liveState;
    if (isSteady ())
        return;
    fadingState = section.fadingState;
    fadeCounter += static_cast<std::int32_t> (count);
}

void BlendBiquad::clearState ()
{
    liveState = {};
    fadingState = {};
}

} // namespace tessaly
