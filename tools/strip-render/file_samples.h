#pragma once

#include <array>
#include <cstddef>
#include <sndfile.h>
#include <span>
#include <variant>
#include <vector>

namespace tessaly::render
{

/// A sample of 24 bits as WAV has it: the lowest byte first.
using Packed24 = std::array<unsigned char, 3>;

/// Samples in the form in which libsndfile reads or writes them in one piece, where there is one. In others it goes
/// through 8 KiB of its own: a call of the system each, and slow conversions.
using FileSamples = std::variant<std::vector<float>, std::vector<short>, std::vector<int>, std::vector<Packed24>>;

/// @param format  libsndfile's, of a file to read
/// @return an empty list
FileSamples SamplesToRead (int format);

/// @param integerBits  of the file, 0 for floats
FileSamples SamplesToWrite (int format, int integerBits);

void Resize (FileSamples& samples, std::size_t count);

/// @param samples  receives up to `frames` frames, for which it has room
/// @return the frames read, fewer than asked for at the end
sf_count_t ReadFrames (SNDFILE* file, FileSamples& samples, std::size_t frames, std::size_t channels);

/// @return whether all of the first `count` have been written
bool WriteFirst (SNDFILE* file, const FileSamples& samples, std::size_t count);

/// As floats of -1 to 1, as libsndfile itself makes them.
void ToFloats (const FileSamples& samples, std::size_t first, std::span<float> floats);

/// @param samples  24 bits, in the high bits of 32
void Pack (std::span<const int> samples, std::span<Packed24> packed);

} // namespace tessaly::render
