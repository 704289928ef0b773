#pragma once

#include <sndfile.h>
#include <string>
#include <utility>
#include <vector>

namespace tessaly::render
{

/// What belongs to a recording besides its samples, and so stays with the result: text tags, the broadcast chunk
/// ("bext") with its time reference, cue points, and which loudspeaker each channel is for.
struct FileMetadata
{
    std::vector<std::pair<int, std::string>> tags; ///< libsndfile's number of the tag
    std::vector<char> broadcast;                   ///< libsndfile's record; empty for none
    std::vector<char> cues;                        ///< likewise
    std::vector<int> channelMap;                   ///< likewise, a number a channel
};

/// @param file  not owned: the caller's, open for reading
FileMetadata ReadMetadata (SNDFILE* file, int channels);

/// To be called ahead of the first sample. What the container has no room for is left out.
/// @param file  not owned: the caller's, open for writing
void WriteMetadata (SNDFILE* file, const FileMetadata& metadata);

} // namespace tessaly::render
