#pragma once

#include <sndfile.h>
#include <string>
#include <utility>
#include <vector>

namespace tessaly::render
{

/// What belongs to a recording besides its samples, and so stays with the result: text tags, the broadcast chunk
/// ("bext") with its time reference, cue points with their labels, and which loudspeaker each channel is for.
struct FileMetadata
{
    std::vector<std::pair<int, std::string>> tags; ///< libsndfile's number of the tag
    std::vector<char> broadcast;                   ///< libsndfile's record; empty for none
    std::vector<char> cues;                        ///< likewise
    std::vector<int> channelMap;                   ///< likewise, a number a channel
    std::vector<std::vector<char>> cueTexts;       ///< the cue points' labels and regions, chunks ("adtl") of WAV
    std::vector<std::string> unkept;               ///< what is there and not passed on, in words
};

/// @param file  not owned: the caller's, open for reading
FileMetadata ReadMetadata (SNDFILE* file, int channels);

/// To be called ahead of the first sample.
/// @param file    not owned: the caller's, open for writing
/// @param format  libsndfile's, of that file
/// @return what the container has no room for and was left out, in words; empty for nothing
std::string WriteMetadata (SNDFILE* file, int format, const FileMetadata& metadata);

} // namespace tessaly::render
