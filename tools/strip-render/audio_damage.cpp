#include "audio_damage.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace tessaly::render
{

namespace
{

constexpr std::int64_t kChunkHeader = 8;
constexpr int kMostChunks = 4096; // ahead of the audio

/// Numbers and letters of a file, from the front.
class HeaderReader
{
public:
    HeaderReader (const InputFile& from, bool isBigEndian)
        : file (from)
        , bigEndian (isBigEndian)
    {
    }

    bool Has (std::int64_t offset, std::string_view letters) const
    {
        std::array<char, 4> bytes{};
        return file.ReadAt (offset, bytes.data (), bytes.size ()) &&
               std::string_view (bytes.data (), bytes.size ()) == letters;
    }

    /// @return nothing beyond the end
    std::optional<std::int64_t> Number (std::int64_t offset, std::size_t width = 4) const
    {
        std::array<unsigned char, 8> bytes{};
        if (!file.ReadAt (offset, bytes.data (), width))
            return std::nullopt;
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < width; ++i)
            number = number << 8 | bytes[bigEndian ? i : width - 1 - i];
        return static_cast<std::int64_t> (number);
    }

private:
    const InputFile& file; // not owned: the caller's
    bool bigEndian;
};

std::string Missing (std::int64_t declared, std::int64_t present)
{
    if (declared <= present)
        return {};
    return "it holds " + std::to_string (std::max<std::int64_t> (present, 0)) + " of its " + std::to_string (declared) +
           " bytes of audio";
}

/// What ffmpeg (all bits set) and sox (just under two gigabytes; less in AIFF) write into a pipe.
bool IsUnknown (std::int64_t declared)
{
    constexpr std::int64_t kSoxFirst = 0x7FFFEF00;
    constexpr std::int64_t kSoxLastOfAiff = 0x7F000000 + 8; // less what is no whole frame
    constexpr std::int64_t kSoxFirstOfAiff = kSoxLastOfAiff - 0x1000;
    return declared == 0xFFFFFFFF || (declared >= kSoxFirst && declared <= 0x7FFFFFFF) ||
           (declared >= kSoxFirstOfAiff && declared <= kSoxLastOfAiff);
}

/// RIFF and its kin: a header of twelve bytes, then chunks, one of which holds the audio.
std::string ChunkedDamage (const InputFile& file, const HeaderReader& header, std::string_view audioId)
{
    std::int64_t declaredWide = 0; // RF64 tells sizes over 32 bits in a chunk of their own
    std::int64_t place = 12;
    for (int i = 0; i < kMostChunks; ++i)
    {
        const auto size = header.Number (place + 4);
        if (!size)
            return "it ends ahead of its audio";
        if (header.Has (place, "ds64"))
            declaredWide = header.Number (place + kChunkHeader + 8, 8).value_or (0);
        if (header.Has (place, audioId))
        {
            const std::int64_t declared = *size == 0xFFFFFFFF && declaredWide > 0 ? declaredWide : *size;
            return IsUnknown (declared) ? "" : Missing (declared, file.Size () - place - kChunkHeader);
        }
        place += kChunkHeader + *size + (*size & 1);
    }
    return {};
}

/// Names of 16 bytes, of which the first four tell, and sizes of 8, which count name and size; chunks begin at multiples
/// of 8.
std::string Wave64Damage (const InputFile& file, const HeaderReader& header)
{
    constexpr std::int64_t kWideHeader = 24;
    constexpr std::int64_t kUnknownFrom = std::int64_t{ 1 } << 62; // ffmpeg into a pipe
    std::int64_t place = 40;
    for (int i = 0; i < kMostChunks; ++i)
    {
        const auto size = header.Number (place + 16, 8);
        if (!size)
            return "it ends ahead of its audio";
        if (*size < kWideHeader || *size >= kUnknownFrom)
            return {};
        if (header.Has (place, "data"))
            return Missing (*size - kWideHeader, file.Size () - place - kWideHeader);
        place += (*size + 7) / 8 * 8;
    }
    return {};
}

/// CAF: names of 4 bytes, sizes of 8. The size of the audio may be left open (all bits set) where it ends the file.
std::string CoreAudioDamage (const InputFile& file, const HeaderReader& header)
{
    constexpr std::int64_t kWideHeader = 12;
    std::int64_t place = 8;
    for (int i = 0; i < kMostChunks; ++i)
    {
        const auto size = header.Number (place + 4, 8);
        if (!size)
            return "it ends ahead of its audio";
        if (*size < 0)
            return {};
        if (header.Has (place, "data"))
            return Missing (*size, file.Size () - place - kWideHeader);
        place += kWideHeader + std::min (*size, file.Size ());
    }
    return {};
}

/// The last page of a stream is marked as such, and is as long as its table of segments says.
std::string OggDamage (const InputFile& file)
{
    constexpr std::int64_t kLargestPage = 27 + 255 + 255 * 255;
    constexpr std::size_t kSegmentCountAt = 26;
    constexpr unsigned char kLastPage = 4;
    const std::int64_t from = std::max<std::int64_t> (0, file.Size () - kLargestPage);
    std::string end (static_cast<std::size_t> (file.Size () - from), '\0');
    if (!file.ReadAt (from, end.data (), end.size ()))
        return {};
    const std::size_t page = end.rfind ("OggS");
    if (page == std::string::npos || end.size () - page <= kSegmentCountAt)
        return "its last page is cut";
    const auto byte = [&end] (std::size_t at) { return static_cast<unsigned char> (end[at]); };
    const std::size_t table = page + kSegmentCountAt + 1;
    std::size_t pageEnd = table + byte (page + kSegmentCountAt);
    for (std::size_t i = table; i < std::min (table + byte (page + kSegmentCountAt), end.size ()); ++i)
        pageEnd += byte (i);
    return pageEnd > end.size () || (byte (page + 5) & kLastPage) == 0 ? "its last page is missing or cut" : "";
}

} // namespace

std::string AudioDamage (const InputFile& file)
{
    const HeaderReader little (file, false);
    const HeaderReader big (file, true);
    if (little.Has (0, "RIFF") || little.Has (0, "RF64"))
        return little.Has (8, "WAVE") ? ChunkedDamage (file, little, "data") : "";
    if (big.Has (0, "RIFX")) // WAV with the highest byte first
        return ChunkedDamage (file, big, "data");
    if (little.Has (0, "riff"))
        return Wave64Damage (file, little);
    if (big.Has (0, "caff"))
        return CoreAudioDamage (file, big);
    if (big.Has (0, "FORM"))
        return ChunkedDamage (file, big, "SSND");
    if (big.Has (0, ".snd"))
    {
        const std::int64_t declared = big.Number (8).value_or (0);
        return IsUnknown (declared) ? "" : Missing (declared, file.Size () - big.Number (4).value_or (0));
    }
    return little.Has (0, "OggS") ? OggDamage (file) : "";
}

bool IsUnfinished (const InputFile& file)
{
    // libsndfile counts 8 bytes less than there are in a WAV without a frame that it began as RF64.
    constexpr std::int64_t kMiscounted = 64;
    const HeaderReader little (file, false);
    const HeaderReader big (file, true);
    const auto goesOnBehind = [&file] (std::int64_t told) { return file.Size () > told + kMiscounted; };
    if (little.Has (0, "RIFF"))
        return goesOnBehind (little.Number (4).value_or (0) + kChunkHeader);
    if (big.Has (0, "RIFX"))
        return goesOnBehind (big.Number (4).value_or (0) + kChunkHeader);
    return big.Has (0, ".snd") && goesOnBehind (big.Number (4).value_or (0));
}

bool IsLengthGuessed (const InputFile& file)
{
    constexpr std::int64_t kTagHeader = 10;
    std::array<unsigned char, kTagHeader> begin{};
    if (!file.ReadAt (0, begin.data (), begin.size ()))
        return false;
    std::int64_t place = 0;
    if (begin[0] == 'I' && begin[1] == 'D' && begin[2] == '3')
    {
        for (std::size_t i = 6; i < begin.size (); ++i)
            place = place << 7 | (begin[i] & 0x7F); // the tag's size, seven bits a byte
        place += kTagHeader;
    }
    std::string frame (192, '\0'); // the headers stand behind the side information, 9 to 32 bytes
    if (!file.ReadAt (place, frame.data (), frame.size ()))
        return false;
    const auto byte = [&frame] (std::size_t at) { return static_cast<unsigned char> (frame[at]); };
    const bool isMpeg = byte (0) == 0xFF && (byte (1) & 0xE0) == 0xE0;
    const auto has = [&frame] (const char* letters) { return frame.find (letters) != std::string::npos; };
    return isMpeg && !has ("Xing") && !has ("Info") && !has ("VBRI");
}

} // namespace tessaly::render
