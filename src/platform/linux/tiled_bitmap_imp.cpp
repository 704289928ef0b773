#include "tiled_bitmap_imp.h"

#include "cairo_handles.h"
#include <algorithm>
#include <cairo.h>
#include <cstring>

namespace tessaly
{

namespace
{

constexpr std::size_t kLongestName = 255;
constexpr std::size_t kPixelBytes = 4;

/// A surface's rows of 32 bits follow one another without a gap.
std::span<std::uint32_t> PixelsOf (cairo_surface_t* surface)
{
    const auto width = static_cast<std::size_t> (cairo_image_surface_get_width (surface));
    const auto height = static_cast<std::size_t> (cairo_image_surface_get_height (surface));
    return { reinterpret_cast<std::uint32_t*> (cairo_image_surface_get_data (surface)), width * height };
}

TileCache::Tile NewSurface (std::int32_t width, std::int32_t height)
{
    TileCache::Tile surface (cairo_image_surface_create (CAIRO_FORMAT_ARGB32, width, height), CairoRelease ());
    return cairo_surface_status (surface.get ()) == CAIRO_STATUS_SUCCESS ? surface : nullptr;
}

/// The range of tiles that the coordinates from `first` to `end` touch, of those that there are.
struct TileRange
{
    std::int32_t first = 0;
    std::int32_t end = 0;
};

TileRange TilesUnder (std::int32_t first, std::int32_t end, std::int32_t tileSize, std::int32_t imageSize)
{
    const std::int32_t from = std::max (first, 0);
    const std::int32_t to = std::min (end, imageSize);
    return from < to ? TileRange{ from / tileSize, (to - 1) / tileSize + 1 } : TileRange{};
}

} // namespace

TileCache::TileCache (std::span<const std::byte> file, std::int32_t pixels, std::size_t most)
    : pack (file)
    , density (pixels)
    , mostBytes (most)
{
    std::size_t tiles = 0;
    for (const auto& image : pack.Images ())
        tiles += static_cast<std::size_t> (image.TileCount ());
    places.assign (tiles, order.end ());
}

TileCache::Tile TileCache::Get (const ImagePack::Image& image, TilePlace place)
{
    const std::lock_guard lock (mutex);
    return GetLocked (image, place);
}

std::size_t TileCache::HeldBytes () const
{
    const std::lock_guard lock (mutex);
    return heldBytes;
}

TileCache::Tile TileCache::GetLocked (const ImagePack::Image& image, TilePlace place)
{
    const auto index = static_cast<std::size_t> (image.firstTile + place.row * image.Columns () + place.column);
    if (places[index] != order.end ())
    {
        order.splice (order.begin (), order, places[index]);
        return order.front ().tile;
    }
    const Tile tile = Unpack (image, place);
    if (tile)
        Keep (index, tile, PixelsOf (tile.get ()).size_bytes ());
    return tile;
}

void TileCache::Keep (std::size_t index, const Tile& tile, std::size_t bytes)
{
    while (!order.empty () && heldBytes + bytes > mostBytes)
    {
        heldBytes -= order.back ().bytes;
        places[order.back ().index] = order.end ();
        order.pop_back ();
    }
    order.push_front ({ tile, index, bytes });
    places[index] = order.begin ();
    heldBytes += bytes;
}

TileCache::Tile TileCache::Unpack (const ImagePack::Image& image, TilePlace place)
{
    const Tile reference = place.IsFirst () ? nullptr : GetLocked (image, ReferenceOf (place));
    const Tile tile = NewSurface (image.tileWidth, image.tileHeight);
    if (!tile || (!reference && !place.IsFirst ()))
        return nullptr;
    const auto referencePixels = reference ? PixelsOf (reference.get ()) : std::span<std::uint32_t>{};
    if (!pack.Unpack (image, place, referencePixels, PixelsOf (tile.get ())))
        return nullptr;
    cairo_surface_mark_dirty (tile.get ());
    return tile;
}

ZTiledBitmapImp::ZTiledBitmapImp (std::string_view imageName, std::shared_ptr<TileCache> tiles)
    : name (imageName.substr (0, kLongestName))
    , cache (std::move (tiles))
    , image (cache->Find (name))
{
    if (image == nullptr)
        return;
    width = static_cast<std::uint32_t> (image->width / cache->Density ());
    height = static_cast<std::uint32_t> (image->height / cache->Density ());
}

ImagePart ZTiledBitmapImp::Part (const ZRect& area)
{
    if (image == nullptr)
        return { { nullptr, PixelGrid (1.0) }, nullptr };
    const std::int32_t density = cache->Density ();
    const std::int32_t tileWidth = image->tileWidth / density;
    const std::int32_t tileHeight = image->tileHeight / density;
    const auto x = TilesUnder (area.left, area.right, tileWidth, static_cast<std::int32_t> (width));
    const auto y = TilesUnder (area.top, area.bottom, tileHeight, static_cast<std::int32_t> (height));
    const ZRect tiles{ x.first, y.first, x.end, y.end };
    ImagePart part = tiles.Width () == 1 && tiles.Height () == 1
                         ? ImagePart{ { nullptr, PixelGrid (1.0) }, cache->Get (*image, { x.first, y.first }) }
                         : Joined (tiles);
    part.source = { part.kept.get (), PixelGrid (density), tileWidth * tiles.Width (), tileHeight * tiles.Height (),
                    ZPoint{ x.first * tileWidth, y.first * tileHeight } };
    return part;
}

/// The pixels of several tiles as one surface, made for this copy alone: panels draw frame by frame.
ImagePart ZTiledBitmapImp::Joined (const ZRect& tiles)
{
    ImagePart part{ { nullptr, PixelGrid (1.0) }, nullptr };
    const TileCache::Tile joined =
        tiles.IsEmpty () ? nullptr
                         : NewSurface (image->tileWidth * tiles.Width (), image->tileHeight * tiles.Height ());
    if (!joined)
        return part;
    const auto tileWidth = static_cast<std::size_t> (image->tileWidth);
    const auto tileHeight = static_cast<std::size_t> (image->tileHeight);
    const auto stride = tileWidth * static_cast<std::size_t> (tiles.Width ());
    for (std::int32_t row = tiles.top; row < tiles.bottom; ++row)
        for (std::int32_t column = tiles.left; column < tiles.right; ++column)
        {
            const auto tile = cache->Get (*image, { column, row });
            if (!tile)
                return part;
            const auto from = PixelsOf (tile.get ());
            auto* to = PixelsOf (joined.get ()).data () +
                       static_cast<std::size_t> (row - tiles.top) * tileHeight * stride +
                       static_cast<std::size_t> (column - tiles.left) * tileWidth;
            for (std::size_t y = 0; y < tileHeight; ++y)
                std::memcpy (to + y * stride, from.data () + y * tileWidth, tileWidth * kPixelBytes);
        }
    cairo_surface_mark_dirty (joined.get ());
    part.kept = joined;
    return part;
}

ImagePart ZTiledBitmapImp::PartWithoutKey (const ZRect& area, ZColor key)
{
    ImagePart part = Part (area);
    if (CairoSurface keyed = part.kept ? WithoutKey (part.kept.get (), key) : nullptr)
    {
        part.kept = std::move (keyed);
        part.source.surface = part.kept.get ();
    }
    return part;
}

} // namespace tessaly
