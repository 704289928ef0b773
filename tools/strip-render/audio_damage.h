#pragma once

#include "input_file.h"

#include <string>

namespace tessaly::render
{

/// Whether an audio file ends ahead of the length that its own headers tell; libsndfile takes what there is without a
/// word. WAV, RF64 and W64, AIFF, AU, CAF, and Ogg, whose last page is marked. A length that stands for "unknown", as
/// programs write that cannot go back in a pipe, is none. FLAC tells by itself while it is read.
/// @return empty for a whole file and for one of another kind; else what is missing, as "10 of its 44 bytes of audio"
std::string AudioDamage (const InputFile& file);

/// Whether a WAV or AU file without a frame by its header goes on behind it: what recorded it was stopped ahead of
/// writing the length. libsndfile reads nothing of it.
bool IsUnfinished (const InputFile& file);

/// Whether nobody knows the length ahead of the end: that of an MP3 file without a Xing, Info or VBRI header is worked
/// out from the rate of its first frame.
bool IsLengthGuessed (const InputFile& file);

} // namespace tessaly::render
