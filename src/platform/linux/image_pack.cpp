#include "image_pack.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <zlib.h>

namespace tessaly
{

namespace
{

constexpr std::size_t kNameBytes = 32;
constexpr std::size_t kMostWordsPerPixel = 2; // a run and its singles, if each is one pixel
constexpr std::size_t kLongestRun = 0xFFFF;
constexpr std::size_t kLeastRun = 3; // shorter ones are written as single pixels
constexpr int kLevel = 9;            // of zlib

/// Numbers and names, one after another.
class Reader
{
public:
    explicit Reader (std::span<const std::byte> bytes)
        : left (bytes)
    {
    }

    bool Failed () const { return failed; }
    std::uint32_t Number ()
    {
        std::uint32_t number = 0;
        const auto bytes = Take (sizeof number);
        if (!bytes.empty ()) // memcpy must not get the null pointer of an empty span
            std::memcpy (&number, bytes.data (), bytes.size ());
        return number;
    }
    std::string_view Name ()
    {
        const auto bytes = Take (kNameBytes);
        const std::string_view padded (reinterpret_cast<const char*> (bytes.data ()), bytes.size ());
        return padded.substr (0, padded.find ('\0'));
    }

private:
    std::span<const std::byte> Take (std::size_t count)
    {
        failed = failed || count > left.size ();
        if (failed)
            return {};
        const auto taken = left.first (count);
        left = left.subspan (count);
        return taken;
    }

    std::span<const std::byte> left;
    bool failed = false;
};

ImagePack::Image ReadImage (Reader& reader)
{
    ImagePack::Image image;
    image.name = reader.Name ();
    for (auto* field : { &image.width, &image.height, &image.tileWidth, &image.tileHeight, &image.firstTile })
        *field = static_cast<std::int32_t> (reader.Number ());
    return image;
}

bool IsSound (const ImagePack::Image& image, std::uint32_t tileCount)
{
    return image.tileWidth > 0 && image.tileHeight > 0 && image.width > 0 && image.height > 0 &&
           image.width % image.tileWidth == 0 && image.height % image.tileHeight == 0 && image.firstTile >= 0 &&
           std::int64_t{ image.firstTile } + image.TileCount () <= tileCount;
}

/// @return no words when they can't be read
std::vector<std::uint32_t> Inflated (std::span<const std::byte> packed, std::size_t mostWords)
{
    std::uint32_t count = 0;
    if (packed.size () < sizeof count)
        return {};
    std::memcpy (&count, packed.data (), sizeof count);
    if (count > mostWords)
        return {};
    std::vector<std::uint32_t> words (count);
    const auto stream = packed.subspan (sizeof count);
    auto size = static_cast<uLongf> (words.size () * sizeof words[0]);
    if (uncompress (reinterpret_cast<Bytef*> (words.data ()), &size, reinterpret_cast<const Bytef*> (stream.data ()),
                    static_cast<uLong> (stream.size ())) != Z_OK)
        return {};
    words.resize (size / sizeof words[0]);
    return words;
}

void FillIn (std::span<std::uint32_t> pixels, std::span<const std::uint32_t> reference)
{
    for (std::size_t i = 0; i < pixels.size (); ++i)
        pixels[i] = pixels[i] == kSamePixel ? reference[i] : pixels[i];
}

/// @return whether the runs are as many pixels as there is room for
bool ReadRuns (std::span<const std::uint32_t> words, std::span<std::uint32_t> pixels)
{
    while (words.size () >= 2)
    {
        const std::size_t run = words[0] & 0xFFFFU;
        const std::size_t singles = words[0] >> 16U;
        if (run + singles > pixels.size () || singles > words.size () - 2)
            return false;
        std::fill_n (pixels.begin (), run, words[1]);
        std::copy_n (words.begin () + 2, singles, pixels.begin () + static_cast<std::ptrdiff_t> (run));
        words = words.subspan (2 + singles);
        pixels = pixels.subspan (run + singles);
    }
    return words.empty () && pixels.empty ();
}

// Writing

void Append (std::vector<std::byte>& file, const void* data, std::size_t size)
{
    const auto end = file.size ();
    file.resize (end + size);
    std::memcpy (file.data () + end, data, size);
}

void AppendNumber (std::vector<std::byte>& file, std::size_t number)
{
    const auto stored = static_cast<std::uint32_t> (number);
    Append (file, &stored, sizeof stored);
}

std::vector<std::uint32_t> TileOf (const ImageToPack& source, TilePlace place)
{
    const auto width = static_cast<std::size_t> (source.tileWidth);
    const auto height = static_cast<std::size_t> (source.tileHeight);
    const auto stride = static_cast<std::size_t> (source.image.width);
    const auto* from = source.image.pixels.data () + static_cast<std::size_t> (place.row) * height * stride +
                       static_cast<std::size_t> (place.column) * width;
    std::vector<std::uint32_t> tile (width * height);
    for (std::size_t y = 0; y < height; ++y)
        std::copy_n (from + y * stride, width, tile.data () + y * width);
    return tile;
}

/// How many equal pixels come first, as far as a run can count.
std::size_t RunLength (std::span<const std::uint32_t> pixels)
{
    const auto end = pixels.begin () + static_cast<std::ptrdiff_t> (std::min (pixels.size (), kLongestRun));
    return static_cast<std::size_t> (
        std::find_if (pixels.begin (), end, [&] (std::uint32_t pixel) { return pixel != pixels[0]; }) -
        pixels.begin ());
}

/// How many come first before the next run that is worth writing.
std::size_t SingleCount (std::span<const std::uint32_t> pixels)
{
    std::size_t count = 0;
    while (count < std::min (pixels.size (), kLongestRun) && RunLength (pixels.subspan (count)) < kLeastRun)
        ++count;
    return count;
}

std::vector<std::uint32_t> AsRuns (std::span<const std::uint32_t> pixels)
{
    std::vector<std::uint32_t> words;
    while (!pixels.empty ())
    {
        const auto run = RunLength (pixels);
        const auto singles = pixels.subspan (run, SingleCount (pixels.subspan (run)));
        words.push_back (static_cast<std::uint32_t> (run | singles.size () << 16U));
        words.push_back (pixels[0]);
        words.insert (words.end (), singles.begin (), singles.end ());
        pixels = pixels.subspan (run + singles.size ());
    }
    return words;
}

std::vector<std::byte> Compressed (std::span<const std::uint32_t> words)
{
    std::vector<std::byte> packed;
    AppendNumber (packed, words.size ());
    auto size = compressBound (static_cast<uLong> (words.size_bytes ()));
    const auto begin = packed.size ();
    packed.resize (begin + size);
    if (compress2 (reinterpret_cast<Bytef*> (packed.data () + begin), &size,
                   reinterpret_cast<const Bytef*> (words.data ()), static_cast<uLong> (words.size_bytes ()),
                   kLevel) != Z_OK)
        throw std::runtime_error ("an image can't be packed");
    packed.resize (begin + size);
    return packed;
}

void LeaveOut (std::span<std::uint32_t> pixels, std::span<const std::uint32_t> same)
{
    for (std::size_t i = 0; i < pixels.size (); ++i)
        pixels[i] = pixels[i] == same[i] ? kSamePixel : pixels[i];
}

void CheckFits (const ImageToPack& source)
{
    const ImagePack::Image image{ source.name,      source.image.width, source.image.height,
                                  source.tileWidth, source.tileHeight,  0 };
    if (source.name.size () >= kNameBytes || !IsSound (image, 1U << 20U))
        throw std::runtime_error ("\"" + source.name + "\" does not fit in a pack");
}

/// Its tiles, each by itself, in their order.
void AppendTiles (const ImageToPack& source, std::vector<std::vector<std::byte>>& tiles)
{
    CheckFits (source);
    for (std::int32_t row = 0; row < source.image.height / source.tileHeight; ++row)
        for (std::int32_t column = 0; column < source.image.width / source.tileWidth; ++column)
        {
            const TilePlace place{ column, row };
            auto tile = TileOf (source, place);
            if (!place.IsFirst ())
                LeaveOut (tile, TileOf (source, ReferenceOf (place)));
            tiles.push_back (Compressed (AsRuns (tile)));
        }
}

} // namespace

std::vector<std::byte> MakeImagePack (std::span<const ImageToPack> images)
{
    std::vector<std::vector<std::byte>> tiles;
    std::vector<std::byte> records;
    for (const auto& source : images)
    {
        std::string name = source.name;
        name.resize (kNameBytes);
        Append (records, name.data (), name.size ());
        for (const auto number : { source.image.width, source.image.height, source.tileWidth, source.tileHeight })
            AppendNumber (records, static_cast<std::size_t> (number));
        AppendNumber (records, tiles.size ());
        AppendTiles (source, tiles);
    }

    std::vector<std::byte> file;
    AppendNumber (file, images.size ());
    AppendNumber (file, tiles.size ());
    Append (file, records.data (), records.size ());
    auto begin = file.size () + (tiles.size () + 1) * sizeof (std::uint32_t);
    AppendNumber (file, begin);
    for (const auto& tile : tiles)
        AppendNumber (file, begin += tile.size ());
    for (const auto& tile : tiles)
        Append (file, tile.data (), tile.size ());
    return file;
}

ImagePack::ImagePack (std::span<const std::byte> bytes)
    : file (bytes)
{
    Reader reader (bytes);
    const std::uint32_t imageCount = reader.Number ();
    const std::uint32_t tileCount = reader.Number ();
    std::vector<Image> read;
    for (std::uint32_t i = 0; i < imageCount && !reader.Failed (); ++i)
        read.push_back (ReadImage (reader));
    for (std::uint32_t i = 0; i <= tileCount && !reader.Failed (); ++i)
        begins.push_back (reader.Number ());
    const bool sound = std::all_of (read.begin (), read.end (),
                                    [tileCount] (const Image& image) { return IsSound (image, tileCount); });
    if (!reader.Failed () && sound && std::is_sorted (begins.begin (), begins.end ()) &&
        begins.back () <= bytes.size ())
        images.swap (read);
}

const ImagePack::Image* ImagePack::Find (std::string_view name) const
{
    const auto found =
        std::find_if (images.begin (), images.end (), [name] (const Image& image) { return image.name == name; });
    return found != images.end () ? &*found : nullptr;
}

bool ImagePack::Unpack (const Image& image, TilePlace place, std::span<const std::uint32_t> reference,
                        std::span<std::uint32_t> pixels) const
{
    const auto tile = static_cast<std::size_t> (image.firstTile + place.row * image.Columns () + place.column);
    const auto packed = file.subspan (begins[tile], begins[tile + 1] - begins[tile]);
    if (!ReadRuns (Inflated (packed, kMostWordsPerPixel * pixels.size ()), pixels))
        return false;
    if (!place.IsFirst ())
        FillIn (pixels, reference);
    return true;
}

} // namespace tessaly
