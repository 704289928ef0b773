#include "sample_quantizer.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

SampleQuantizer::SampleQuantizer (int bits, bool dither)
    : unusedBits (32 - bits)
    , dithers (dither)
    , fullScale (std::ldexp (1.0, bits - 1))
{
}

double SampleQuantizer::Noise ()
{
    // The generator of D. E. Knuth's MMIX; its high bits are the good ones.
    const auto uniform = [this]
    {
        seed = seed * 6364136223846793005U + 1442695040888963407U;
        return std::ldexp (static_cast<double> (seed >> 32), -32);
    };
    const double first = uniform ();
    return first - uniform ();
}

void SampleQuantizer::Quantize (std::span<const float> samples, std::span<int> out)
{
    for (std::size_t i = 0; i < samples.size (); ++i)
    {
        const double x = std::isnan (samples[i]) ? 0.0 : static_cast<double> (samples[i]);
        if (std::abs (x) > 1.0)
        {
            ++clipped;
            largest = std::max (largest, std::abs (x));
        }
        const double steps = x * fullScale + (dithers ? Noise () : 0.0);
        const double nearest = std::clamp (std::nearbyint (steps), -fullScale, fullScale - 1.0);
        out[i] = static_cast<int> (static_cast<std::int64_t> (nearest) << unusedBits);
    }
}

double SampleQuantizer::OverDb () const
{
    return 20.0 * std::log10 (largest);
}

} // namespace tessaly::render
