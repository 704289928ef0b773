#include "file_metadata.h"

#include <cstdint>

namespace tessaly::render
{

namespace
{

using Broadcast = SF_BROADCAST_INFO_VAR (8192); // room for its history of encodings

std::vector<char> ReadBroadcast (SNDFILE* file)
{
    std::vector<char> bytes (sizeof (Broadcast));
    if (sf_command (file, SFC_GET_BROADCAST_INFO, bytes.data (), static_cast<int> (bytes.size ())) != SF_TRUE)
        bytes.clear ();
    return bytes;
}

std::vector<char> ReadCues (SNDFILE* file)
{
    std::uint32_t count = 0;
    if (sf_command (file, SFC_GET_CUE_COUNT, &count, sizeof (count)) != SF_TRUE || count == 0)
        return {};
    std::vector<char> bytes (sizeof (count) + count * sizeof (SF_CUE_POINT));
    if (sf_command (file, SFC_GET_CUE, bytes.data (), static_cast<int> (bytes.size ())) != SF_TRUE)
        bytes.clear ();
    return bytes;
}

} // namespace

FileMetadata ReadMetadata (SNDFILE* file, int channels)
{
    FileMetadata metadata;
    for (int tag = SF_STR_FIRST; tag <= SF_STR_LAST; ++tag)
        if (const char* text = sf_get_string (file, tag); text != nullptr && *text != '\0')
            metadata.tags.emplace_back (tag, text);
    metadata.broadcast = ReadBroadcast (file);
    metadata.cues = ReadCues (file);
    metadata.channelMap.resize (static_cast<std::size_t> (channels));
    const int mapBytes = static_cast<int> (sizeof (int)) * channels;
    if (sf_command (file, SFC_GET_CHANNEL_MAP_INFO, metadata.channelMap.data (), mapBytes) != SF_TRUE)
        metadata.channelMap.clear ();
    return metadata;
}

void WriteMetadata (SNDFILE* file, const FileMetadata& metadata)
{
    const auto put = [file] (int command, const auto& values)
    {
        auto copy = values; // the library asks for memory that it may write to
        if (!copy.empty ())
            sf_command (file, command, copy.data (), static_cast<int> (copy.size () * sizeof (copy[0])));
    };
    for (const auto& [tag, text] : metadata.tags)
        sf_set_string (file, tag, text.c_str ());
    put (SFC_SET_BROADCAST_INFO, metadata.broadcast);
    put (SFC_SET_CUE, metadata.cues);
    put (SFC_SET_CHANNEL_MAP_INFO, metadata.channelMap);
}

} // namespace tessaly::render
