#pragma once

#include "channel_strip.h"
#include "old_effect.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// A strip at work under an effect that keeps the meters as they were last written.
class StripUnderTest : public ZOldEffect
{
public:
    StripUnderTest ()
        : ZOldEffect (nullptr)
    {
    }
    void SetMeter (std::int32_t index, float value) override { published.at (std::size_t (index)) = value; }
    void SetParameter (std::int32_t index, float value) override { strip.SetParameter (index, value); }

    void set (StripParameter parameter, float step) { SetParameter (std::int32_t (parameter), step); }

    std::vector<float> run (std::vector<float> samples)
    {
        float* channel = samples.data ();
        strip.Process (&channel, &channel, std::int32_t (samples.size ()));
        return samples;
    }

    std::array<float, 2> published{ -1.0F, -1.0F };
    Channel_Strip strip{ this };
};

} // namespace tessaly
