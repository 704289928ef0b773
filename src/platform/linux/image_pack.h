#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly
{

// Images in one file, each cut into tiles of one size that can be unpacked by themselves: a tile is a frame of a strip.
//
// All numbers are unsigned, 32 bits, in the machine's order, for a pack is made where it is used:
//     image count, tile count, then for each image kNameBytes of name (zeros after it), width, height, tile width, tile
//     height, first tile; then where each tile begins in the file, and the end of the last; then the tiles.
// Tiles follow one another along rows. A tile is its pixels, 0xAARRGGBB with premultiplied alpha, but for those that are
// the same in another tile, which it mostly resembles: they are written as kSamePixel. In the first column that is the
// first tile of all, in the others the one of the same row in the first column, since columns are variants of one
// drawing. All this is written as runs: how many words they take, and then they as a zlib stream, of runs of this form:
//     the run's length in the low 16 bits, the number of single pixels after it in the high ones; the run's pixel; those
// Most of a panel is flat, so that zlib has little to unpack, which is the slow part.

inline constexpr std::uint32_t kSamePixel = 1; // colour without alpha, which no premultiplied pixel has

/// Pixels of an image, row by row.
struct PixelBlock
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels;
};

/// An image as it goes into a pack.
struct ImageToPack
{
    std::string name; // upper case, at most 31 bytes
    std::int32_t tileWidth = 0;
    std::int32_t tileHeight = 0;
    PixelBlock image; // its size is a multiple of the tile's
};

/// Of a tile, counted from the image's top left one.
struct TilePlace
{
    std::int32_t column = 0;
    std::int32_t row = 0;

    bool IsFirst () const { return column == 0 && row == 0; }
};

/// The tile that this one is stored against; the first one stands alone.
constexpr TilePlace ReferenceOf (TilePlace tile)
{
    return tile.column > 0 ? TilePlace{ 0, tile.row } : TilePlace{ 0, 0 };
}

/// The same images give the same bytes. @throws std::runtime_error for an image that does not fit the rules above
std::vector<std::byte> MakeImagePack (std::span<const ImageToPack> images);

/// Reads a pack; any thread.
class ImagePack
{
public:
    struct Image
    {
        std::string_view name;       // in the file
        std::int32_t width = 0;      // pixels
        std::int32_t height = 0;     // likewise
        std::int32_t tileWidth = 0;  // likewise
        std::int32_t tileHeight = 0; // likewise
        std::int32_t firstTile = 0;

        std::int32_t Columns () const { return width / tileWidth; }
        std::int32_t TileCount () const { return Columns () * (height / tileHeight); }
    };

    ImagePack () = default;
    explicit ImagePack (std::span<const std::byte> file); ///< borrowed; one that is no pack has no images

    std::span<const Image> Images () const { return images; }
    const Image* Find (std::string_view name) const; ///< null without one; stays as long as this

    /// Unpacks a tile into `pixels`, which has room for it.
    /// @param reference  the pixels of ReferenceOf (place); of no tile for the first one
    /// @return false when it can't be read; the pixels are anything then
    bool Unpack (const Image& image, TilePlace place, std::span<const std::uint32_t> reference,
                 std::span<std::uint32_t> pixels) const;

private:
    std::span<const std::byte> file; // not owned: who made the pack
    std::vector<Image> images;
    std::vector<std::uint32_t> begins; // of the tiles, and the end of the last
};

} // namespace tessaly
