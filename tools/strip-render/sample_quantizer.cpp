#include "sample_quantizer.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

namespace
{

/// By the rounding of an addition: the C library's function is a call for each sample.
double NearestWhole (double x)
{
    constexpr double kFractionEnds = 0x1.8p52;
    return x + kFractionEnds - kFractionEnds;
}

} // namespace

SampleQuantizer::SampleQuantizer (int bits, bool dither)
    : unusedBits (32 - bits)
    , dithers (dither)
    , fullScale (std::ldexp (1.0, bits - 1))
{
}

double SampleQuantizer::Noise ()
{
    // SplitMix64 (G. L. Steele, D. Lea, C. H. Flood, "Fast Splittable Pseudorandom Number Generators", 2014), whose
    // steps do not wait for one another. Each half of its 64 bits is a uniform number.
    seed += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = (seed ^ (seed >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return (static_cast<double> (bits >> 32) - static_cast<double> (bits & 0xFFFFFFFFU)) * 0x1p-32;
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
        const double nearest = NearestWhole (std::clamp (steps, -fullScale, fullScale - 1.0));
        out[i] = static_cast<int> (static_cast<std::int64_t> (nearest) << unusedBits);
    }
}

double SampleQuantizer::OverDb () const
{
    return 20.0 * std::log10 (largest);
}

} // namespace tessaly::render
