#pragma once

#include "cairo_image.h"
#include "image_pack.h"
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly
{

/// The images of a pack, shared by all who draw them: a tile is unpacked when it is drawn, and the one that was drawn
/// longest ago goes when all take more than `mostBytes`. Any thread but the audio thread: it locks and allocates. A
/// tile that is held outlives its place here.
class TileCache
{
public:
    using Tile = std::shared_ptr<cairo_surface_t>;

    /// @param pack     borrowed; stays as long as this
    /// @param density  pixels a coordinate
    TileCache (std::span<const std::byte> pack, std::int32_t density, std::size_t mostBytes);

    const ImagePack::Image* Find (std::string_view name) const { return pack.Find (name); }
    std::int32_t Density () const { return density; }
    Tile Get (const ImagePack::Image& image, TilePlace place); ///< null if it can't be read
    std::size_t HeldBytes () const;

private:
    struct Held
    {
        Tile tile;
        std::size_t index = 0; // of `places`
        std::size_t bytes = 0;
    };
    using Order = std::list<Held>;

    Tile GetLocked (const ImagePack::Image& image, TilePlace place);
    void Keep (std::size_t index, const Tile& tile, std::size_t bytes);
    Tile Unpack (const ImagePack::Image& image, TilePlace place);

    const ImagePack pack;
    const std::int32_t density;
    const std::size_t mostBytes;

    mutable std::mutex mutex;            // guards all below
    Order order;                         // drawn last comes first
    std::vector<Order::iterator> places; // for each tile of the pack; order.end () when it is not held
    std::size_t heldBytes = 0;
};

/// One of those images.
class ZTiledBitmapImp final : public ZCairoImage
{
public:
    /// @param name  under which it is looked for; without such an image its size is 0
    ZTiledBitmapImp (std::string_view name, std::shared_ptr<TileCache> cache);

    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override { return width; }
    std::uint32_t GetHeight () const override { return height; }

    ImagePart Part (const ZRect& area) override;
    ImagePart PartWithoutKey (const ZRect& area, ZColor key) override;

private:
    ImagePart Joined (const ZRect& tiles);

    std::string name;
    std::shared_ptr<TileCache> cache;
    const ImagePack::Image* image; // not owned: the cache; null when there is none
    std::uint32_t width = 0;       // coordinates
    std::uint32_t height = 0;
};

} // namespace tessaly
