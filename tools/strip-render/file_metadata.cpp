#include "file_metadata.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

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

constexpr std::string_view kListName = "LIST";
constexpr std::string_view kCueTexts = "adtl"; // the kind of list, ahead of its entries

SF_CHUNK_INFO ChunkNamed (std::string_view name)
{
    SF_CHUNK_INFO chunk{};
    name.copy (chunk.id, name.size ());
    chunk.id_size = static_cast<unsigned> (name.size ());
    return chunk;
}

/// libsndfile reads the labels, but writes none; chunks it passes on.
std::vector<std::vector<char>> ReadCueTexts (SNDFILE* file)
{
    constexpr unsigned kLargest = 1 << 24;
    std::vector<std::vector<char>> texts;
    SF_CHUNK_INFO chunk = ChunkNamed (kListName);
    for (auto* at = sf_get_chunk_iterator (file, &chunk); at != nullptr; at = sf_next_chunk_iterator (at))
    {
        if (sf_get_chunk_size (at, &chunk) != SF_ERR_NO_ERROR || chunk.datalen > kLargest)
            continue;
        std::vector<char> bytes (chunk.datalen);
        chunk.data = bytes.data ();
        if (sf_get_chunk_data (at, &chunk) == SF_ERR_NO_ERROR &&
            std::string_view (bytes.data (), bytes.size ()).starts_with (kCueTexts))
            texts.push_back (std::move (bytes));
    }
    return texts;
}

/// Chunks of WAV and AIFF that a user may miss: production data, loops, other programs' tags.
std::vector<std::string> ReadUnkept (SNDFILE* file)
{
    std::vector<std::string> unkept;
    for (const char* name : { "iXML", "axml", "smpl", "inst", "INST", "acid", "cart", "_PMX", "id3 ", "ID3 " })
    {
        const SF_CHUNK_INFO chunk = ChunkNamed (name);
        if (sf_get_chunk_iterator (file, &chunk) != nullptr)
            unkept.push_back ("the chunk \"" + std::string (name) + "\"");
    }
    return unkept;
}

void AppendNumber (std::vector<char>& bytes, std::size_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back (static_cast<char> (number >> shift & 0xFF));
}

/// The labels of an AIFF file's cue points as WAV has them. @return empty where there are none
std::vector<char> LabelsOf (const std::vector<char>& cues)
{
    std::vector<char> list;
    for (std::size_t at = sizeof (std::uint32_t); at < cues.size (); at += sizeof (SF_CUE_POINT))
    {
        SF_CUE_POINT cue;
        std::memcpy (&cue, &cues[at], sizeof (cue));
        const std::string_view name (cue.name, strnlen (cue.name, sizeof (cue.name) - 1));
        if (name.empty ())
            continue;
        constexpr std::string_view kLabel = "labl";
        list.insert (list.end (), kLabel.begin (), kLabel.end ());
        AppendNumber (list, sizeof (std::uint32_t) + name.size () + 1);
        AppendNumber (list, static_cast<std::uint32_t> (cue.indx));
        list.insert (list.end (), name.begin (), name.end ());
        list.resize (list.size () + 1 + (name.size () + 1) % 2); // its end, and an even length
    }
    if (!list.empty ())
        list.insert (list.begin (), kCueTexts.begin (), kCueTexts.end ());
    return list;
}

bool IsWav (int format)
{
    const int container = format & SF_FORMAT_TYPEMASK;
    return container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX || container == SF_FORMAT_RF64;
}

bool HasTag (int format, int tag)
{
    const int container = format & SF_FORMAT_TYPEMASK;
    if (container == SF_FORMAT_AIFF)
        return tag == SF_STR_TITLE || tag == SF_STR_COPYRIGHT || tag == SF_STR_SOFTWARE || tag == SF_STR_ARTIST ||
               tag == SF_STR_COMMENT;
    return container == SF_FORMAT_FLAC || (IsWav (format) && tag != SF_STR_LICENSE);
}

/// As "a, b and c".
std::string Joined (const std::vector<std::string>& parts)
{
    std::string text;
    for (std::size_t i = 0; i < parts.size (); ++i)
        text += (i == 0 ? "" : i + 1 == parts.size () ? " and " : ", ") + parts[i];
    return text;
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
    metadata.cueTexts = ReadCueTexts (file);
    if (auto labels = LabelsOf (metadata.cues); metadata.cueTexts.empty () && !labels.empty ())
        metadata.cueTexts.push_back (std::move (labels));
    metadata.channelMap.resize (static_cast<std::size_t> (channels));
    const int mapBytes = static_cast<int> (sizeof (int)) * channels;
    if (sf_command (file, SFC_GET_CHANNEL_MAP_INFO, metadata.channelMap.data (), mapBytes) != SF_TRUE)
        metadata.channelMap.clear ();
    metadata.unkept = ReadUnkept (file);
    return metadata;
}

std::string WriteMetadata (SNDFILE* file, int format, const FileMetadata& metadata)
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
    for (auto text : IsWav (format) ? metadata.cueTexts : decltype (metadata.cueTexts){})
    {
        SF_CHUNK_INFO chunk = ChunkNamed (kListName);
        chunk.data = text.data ();
        chunk.datalen = static_cast<unsigned> (text.size ());
        sf_set_chunk (file, &chunk);
    }

    std::vector<std::string> leftOut = metadata.unkept;
    const auto isLost = [format] (const auto& tag)
    { return tag.first != SF_STR_SOFTWARE && !HasTag (format, tag.first); }; // the program before is no great loss
    if (const auto lost = std::ranges::count_if (metadata.tags, isLost); lost > 0)
        leftOut.push_back (std::to_string (lost) + (lost == 1 ? " text tag" : " text tags"));
    if (!metadata.broadcast.empty () && !IsWav (format))
        leftOut.emplace_back ("the time reference (bext)");
    const bool keepsCues = IsWav (format) || (format & SF_FORMAT_TYPEMASK) == SF_FORMAT_AIFF;
    if (!metadata.cues.empty () && !keepsCues)
        leftOut.emplace_back ("the cue points");
    return Joined (leftOut);
}

} // namespace tessaly::render
