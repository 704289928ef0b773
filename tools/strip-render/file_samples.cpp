#include "file_samples.h"

#include "simd_clones.h"

#include <algorithm>

namespace tessaly::render
{

namespace
{

/// AIFF and AU, and WAV on request, have the highest byte first.
bool IsPacked24 (int format)
{
    const int container = format & SF_FORMAT_TYPEMASK;
    const bool isWav = container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX || container == SF_FORMAT_RF64;
    return isWav && (format & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_24 && (format & SF_FORMAT_ENDMASK) == SF_ENDIAN_FILE;
}

sf_count_t Read (SNDFILE* file, float* samples, sf_count_t frames, std::size_t)
{
    return sf_readf_float (file, samples, frames);
}

sf_count_t Read (SNDFILE* file, short* samples, sf_count_t frames, std::size_t)
{
    return sf_readf_short (file, samples, frames);
}

sf_count_t Read (SNDFILE* file, int* samples, sf_count_t frames, std::size_t)
{
    return sf_readf_int (file, samples, frames);
}

sf_count_t Read (SNDFILE* file, Packed24* samples, sf_count_t frames, std::size_t channels)
{
    const auto frameBytes = static_cast<sf_count_t> (channels * sizeof (Packed24));
    return sf_read_raw (file, samples, frames * frameBytes) / frameBytes;
}

sf_count_t Write (SNDFILE* file, const float* samples, sf_count_t count)
{
    return sf_write_float (file, samples, count);
}

sf_count_t Write (SNDFILE* file, const short* samples, sf_count_t count)
{
    return sf_write_short (file, samples, count);
}

sf_count_t Write (SNDFILE* file, const int* samples, sf_count_t count)
{
    return sf_write_int (file, samples, count);
}

sf_count_t Write (SNDFILE* file, const Packed24* samples, sf_count_t count)
{
    constexpr auto kBytes = static_cast<sf_count_t> (sizeof (Packed24));
    return sf_write_raw (file, samples, count * kBytes) / kBytes;
}

void Convert (std::span<const float> samples, std::span<float> floats)
{
    std::ranges::copy (samples, floats.begin ());
}

TESSALY_SIMD_CLONES void Convert (std::span<const short> samples, std::span<float> floats)
{
    for (std::size_t i = 0; i < floats.size (); ++i)
        floats[i] = static_cast<float> (samples[i]) * 0x1p-15F;
}

TESSALY_SIMD_CLONES void Convert (std::span<const int> samples, std::span<float> floats)
{
    for (std::size_t i = 0; i < floats.size (); ++i)
        floats[i] = static_cast<float> (samples[i]) * 0x1p-31F;
}

TESSALY_SIMD_CLONES void Convert (std::span<const Packed24> samples, std::span<float> floats)
{
    for (std::size_t i = 0; i < floats.size (); ++i)
    {
        const auto high = samples[i][0] << 8 | samples[i][1] << 16 | samples[i][2] << 24;
        floats[i] = static_cast<float> (high) * 0x1p-31F;
    }
}

} // namespace

FileSamples SamplesToRead (int format)
{
    if ((format & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16)
        return std::vector<short> ();
    return IsPacked24 (format) ? FileSamples (std::vector<Packed24> ()) : std::vector<float> ();
}

FileSamples SamplesToWrite (int format, int integerBits)
{
    constexpr int kShort = 16;
    if (IsPacked24 (format))
        return std::vector<Packed24> ();
    if (integerBits == 0)
        return std::vector<float> ();
    return integerBits == kShort ? FileSamples (std::vector<short> ()) : std::vector<int> ();
}

void Resize (FileSamples& samples, std::size_t count)
{
    std::visit ([count] (auto& list) { list.resize (count); }, samples);
}

sf_count_t ReadFrames (SNDFILE* file, FileSamples& samples, std::size_t frames, std::size_t channels)
{
    return std::visit (
        [&] (auto& list) { return Read (file, list.data (), static_cast<sf_count_t> (frames), channels); }, samples);
}

bool WriteFirst (SNDFILE* file, const FileSamples& samples, std::size_t count)
{
    const auto wanted = static_cast<sf_count_t> (count);
    return std::visit ([&] (const auto& list) { return Write (file, list.data (), wanted) == wanted; }, samples);
}

void ToFloats (const FileSamples& samples, std::size_t first, std::span<float> floats)
{
    std::visit ([&] (const auto& list) { Convert (std::span (list).subspan (first, floats.size ()), floats); },
                samples);
}

TESSALY_SIMD_CLONES void Pack (std::span<const int> samples, std::span<Packed24> packed)
{
    for (std::size_t i = 0; i < samples.size (); ++i)
    {
        const auto bits = static_cast<unsigned> (samples[i]);
        packed[i][0] = static_cast<unsigned char> (bits >> 8);
        packed[i][1] = static_cast<unsigned char> (bits >> 16);
        packed[i][2] = static_cast<unsigned char> (bits >> 24);
    }
}

} // namespace tessaly::render
