#include "sample_quantizer.h"

#include "simd_clones.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace tessaly::render
{

namespace
{

constexpr std::size_t kPiece = 1024; // samples whose noise is made at once, in the first cache

/// By the rounding of an addition: the C library's function is a call for each sample.
template <typename Real>
Real NearestWhole (Real x)
{
    constexpr auto kFractionEnds = static_cast<Real> (3ULL << (std::numeric_limits<Real>::digits - 2));
    return x + kFractionEnds - kFractionEnds;
}

/// A number of triangular density, -1 to 1, for the place of a sample: the place's hash ("lowbias32" of C. Wellons,
/// "Prospecting for Hash Functions", 2018), whose halves are two uniform numbers. No number waits for the one before, so
/// that many are made at once (SIMD), and it does not matter in which pieces the samples come.
float NoiseAt (std::uint32_t place)
{
    std::uint32_t bits = (place ^ (place >> 16)) * 0x7FEB352DU;
    bits = (bits ^ (bits >> 15)) * 0x846CA68BU;
    bits ^= bits >> 16;
    const auto difference = static_cast<std::int32_t> (bits >> 16) - static_cast<std::int32_t> (bits & 0xFFFFU);
    return static_cast<float> (difference) * 0x1p-16F;
}

/// @param Real  holds the steps of the format and a good deal of their fractions
template <typename Real, typename Step>
[[gnu::always_inline]] inline void ToSteps (std::span<const float> samples, const float* noise, int bits, Step* out)
{
    const Real scale = std::ldexp (Real{ 1 }, bits - 1);
    const int shift = std::numeric_limits<std::make_unsigned_t<Step>>::digits - bits;
    for (std::size_t i = 0; i < samples.size (); ++i)
    {
        const Real steps = static_cast<Real> (samples[i]) * scale + static_cast<Real> (noise[i]);
        const Real low = steps > -scale ? steps : -scale;
        const Real within = low < scale - 1 ? low : scale - 1;
        const int nearest = static_cast<int> (NearestWhole (within)) << shift;
        out[i] = static_cast<Step> (std::isnan (samples[i]) ? 0 : nearest);
    }
}

TESSALY_SIMD_CLONES void MakeNoise (std::uint32_t place, std::span<float> noise)
{
    for (std::size_t i = 0; i < noise.size (); ++i)
        noise[i] = NoiseAt (place + static_cast<std::uint32_t> (i));
}

/// Floats hold 256 places between two steps of 16 bits, and twice as many of them are worked on at once.
TESSALY_SIMD_CLONES void ToShorts (std::span<const float> samples, const float* noise, int bits, short* out)
{
    ToSteps<float> (samples, noise, bits, out);
}

TESSALY_SIMD_CLONES void ToInts (std::span<const float> samples, const float* noise, int bits, int* out)
{
    ToSteps<double> (samples, noise, bits, out);
}

TESSALY_SIMD_CLONES bool IsAnyBeyondFullScale (std::span<const float> samples)
{
    int beyond = 0;
    for (const float x : samples)
        beyond |= std::abs (x) > 1.0F ? 1 : 0;
    return beyond != 0;
}

} // namespace

SampleQuantizer::SampleQuantizer (int sampleBits, bool dither)
    : bits (sampleBits)
    , dithers (dither)
{
}

void SampleQuantizer::Quantize (std::span<const float> samples, std::span<short> out)
{
    QuantizeBy (ToShorts, samples, out);
}

void SampleQuantizer::Quantize (std::span<const float> samples, std::span<int> out)
{
    QuantizeBy (ToInts, samples, out);
}

template <typename ToSteps, typename Step>
void SampleQuantizer::QuantizeBy (ToSteps toSteps, std::span<const float> samples, std::span<Step> out)
{
    FindClipping (samples);
    std::array<float, kPiece> noise{};
    for (std::size_t done = 0; done < samples.size (); done += kPiece)
    {
        const auto piece = samples.subspan (done, std::min (kPiece, samples.size () - done));
        if (dithers)
            MakeNoise (place, std::span (noise).first (piece.size ()));
        place += static_cast<std::uint32_t> (piece.size ());
        toSteps (piece, noise.data (), bits, &out[done]);
    }
}

void SampleQuantizer::FindClipping (std::span<const float> samples)
{
    if (!IsAnyBeyondFullScale (samples)) // as good as always
        return;
    for (const float x : samples)
        if (std::abs (x) > 1.0F)
        {
            ++clipped;
            largest = std::max (largest, static_cast<double> (std::abs (x)));
        }
}

double SampleQuantizer::OverDb () const
{
    return 20.0 * std::log10 (largest);
}

} // namespace tessaly::render
