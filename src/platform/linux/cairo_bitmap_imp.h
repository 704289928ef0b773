#pragma once

#include "cairo_copy.h"
#include "cairo_handles.h"
#include "cairo_image.h"
#include "image_store.h"
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tessaly
{

class ZStream;

/// A PNG image. Its data may hold `density` pixels a coordinate each way; its size is in coordinates all the same.
class ZCairoBitmapImp final : public ZCairoImage
{
public:
    /// @param density  1 or 2, clamped
    ZCairoBitmapImp (std::string_view name, std::span<const std::byte> png, std::int32_t density = 1);
    ZCairoBitmapImp (std::string_view name, ZStream& png, std::int32_t density = 1); ///< from where the stream stands

    /// The image of this name, in any case, from the store: its denser variant for a surface of a scale above 1, where
    /// there is one that can be read. Never null; without an image its size is 0.
    static std::unique_ptr<ZCairoBitmapImp> Load (const ZImageStore& store, std::string_view name, double scale);

    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override { return width; }
    std::uint32_t GetHeight () const override { return height; }

    ImagePart Part (const ZRect&) override { return { Pixels (), nullptr }; }
    ImagePart PartWithoutKey (const ZRect&, ZColor key) override { return { PixelsWithoutKey (key), nullptr }; }

    CopySource Pixels () const; ///< valid as long as this
    /// Those without the opaque pixels of this colour, which are looked for once and not again for each copy.
    CopySource PixelsWithoutKey (ZColor key);

private:
    void Take (CairoSurface decoded);
    CopySource SourceOf (cairo_surface_t* surface) const;

    std::string name;
    std::int32_t density;
    std::uint32_t width = 0; // coordinates
    std::uint32_t height = 0;
    CairoSurface pixels; // null when there is no image

    ZColor keyed;             // what `keyedPixels` was made for
    bool keyKnown = false;    // whether it was
    CairoSurface keyedPixels; // null while it would be the same as `pixels`
};

} // namespace tessaly
