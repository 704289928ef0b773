#include "tiled_bitmap_imp.h"

#include "cairo_canvas_imp.h"
#include "pixel_picture.h"
#include "png.h"
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;
using test::Picture;

namespace
{

constexpr std::size_t kPlenty = 1U << 20U;
constexpr std::size_t kTileBytes = 4 * 8 * 6;

/// A strip of 3 columns and 5 rows of frames of 8 by 6 pixels, in which every pixel is another colour.
PixelBlock Strip ()
{
    PixelBlock block{ 24, 30, {} };
    for (std::uint32_t i = 0; i < 24 * 30; ++i)
        block.pixels.push_back (0xFF000000U | i * 2654435761U % 0x1000000U);
    return block;
}

std::vector<std::byte> Packed ()
{
    const ImageToPack images[]{ { "FIRST.PNG", 2, 2, { 2, 2, { 0, 0, 0, 0 } } }, { "STRIP.PNG", 8, 6, Strip () } };
    return MakeImagePack (images);
}

/// The same strip as one image.
ZCairoBitmapImp Whole (std::int32_t density)
{
    const auto block = Strip ();
    ZCairoCanvasImp canvas (24, 30, 1.0);
    for (std::int32_t y = 0; y < 30; ++y)
        for (std::int32_t x = 0; x < 24; ++x)
        {
            const auto pixel = block.pixels[static_cast<std::size_t> (24 * y + x)];
            canvas.SetColor ({ std::uint8_t (pixel >> 16U), std::uint8_t (pixel >> 8U), std::uint8_t (pixel) }, 255);
            canvas.FillRect ({ x, y, x + 1, y + 1 });
        }
    return test::ImageOf (canvas, density);
}

} // namespace

TEST_CASE ("tiled images: every copy gives the pixels that the whole image gives")
{
    const auto pack = Packed ();
    for (const std::int32_t density : { 1, 2 })
    {
        auto whole = Whole (density);
        ZTiledBitmapImp tiled ("STRIP.PNG", std::make_shared<TileCache> (pack, density, kPlenty));
        REQUIRE (tiled.GetWidth () == whole.GetWidth ());
        REQUIRE (tiled.GetHeight () == whole.GetHeight ());
        const std::int32_t w = 8 / density;
        const std::int32_t h = 6 / density;
        const ZRect areas[]{ { w, h, 2 * w, 2 * h },     { 0, 0, w, h },       { 2 * w, 4 * h, 3 * w, 5 * h },
                             { w - 1, h, w + 2, 3 * h }, { -3, -2, w - 1, h }, { 2 * w, 4 * h, 4 * w, 6 * h },
                             { 99, 0, 120, 9 } };
        for (const double scale : { 1.0, 1.25, 1.5, 2.0 })
            for (const ZRect& area : areas)
            {
                CAPTURE (density);
                CAPTURE (scale);
                CAPTURE (area.left);
                CAPTURE (area.top);
                ZCairoCanvasImp expected (50, 30, scale);
                ZCairoCanvasImp canvas (50, 30, scale);
                for (auto [target, image] :
                     { std::pair<ZCairoCanvasImp*, ZBitmapImp*>{ &expected, &whole }, { &canvas, &tiled } })
                {
                    const ZRect at = ZRect{ 0, 0, area.Width (), area.Height () } + ZPoint{ 3, 2 };
                    target->DrawBitmapPlain (*image, at, area.TopLeft ());
                    target->DrawBitmapAlpha (*image, at + ZPoint{ 22, 0 }, area.TopLeft (), 100);
                    target->DrawBitmapKeyed (*image, at + ZPoint{ 0, 14 }, area.TopLeft (), { 0, 0, 0 });
                    target->StretchBitmap (*image, { 25, 14, 38, 21 }, area);
                }
                CHECK (Picture (canvas).IsLike (Picture (expected), 0));
            }
    }
}

TEST_CASE ("tiled images: tiles that were drawn longest ago make room, and come again")
{
    const auto pack = Packed ();
    TileCache cache (pack, 1, 4 * kTileBytes);
    const auto* image = cache.Find ("STRIP.PNG");
    REQUIRE (image != nullptr);
    const auto first = cache.Get (*image, { 0, 0 });
    for (std::int32_t row = 0; row < 5; ++row)
        for (std::int32_t column = 0; column < 3; ++column)
            CHECK (cache.Get (*image, { column, row }) != nullptr);
    CHECK (cache.HeldBytes () <= 4 * kTileBytes);
    const auto last = cache.Get (*image, { 2, 4 });
    CHECK (cache.Get (*image, { 2, 4 }) == last);
    CHECK (first.use_count () >= 1); // the one that is held stays
}

TEST_CASE ("tiled images: are shared by threads")
{
    const auto pack = Packed ();
    const auto cache = std::make_shared<TileCache> (pack, 1, 3 * kTileBytes);
    ZCairoCanvasImp straight (24, 30, 1.0);
    auto whole = Whole (1);
    straight.DrawBitmapPlain (whole, { 0, 0, 24, 30 }, {});
    const Picture expected (straight);
    const auto draw = [&]
    {
        for (int round = 0; round < 20; ++round)
        {
            ZTiledBitmapImp image ("STRIP.PNG", cache);
            ZCairoCanvasImp canvas (24, 30, 1.0);
            for (std::int32_t y = 0; y < 30; y += 6)
                for (std::int32_t x = 0; x < 24; x += 8)
                    canvas.DrawBitmapPlain (image, { x, y, x + 8, y + 6 }, { x, y });
            if (!Picture (canvas).IsLike (expected, 0))
                FAIL_CHECK ("another picture");
        }
    };
    std::thread other (draw);
    draw ();
    other.join ();
}

TEST_CASE ("tiled images: bytes that are no pack have no images and draw nothing")
{
    auto pack = Packed ();
    for (const std::size_t length : { std::size_t{ 0 }, std::size_t{ 7 }, std::size_t{ 100 }, pack.size () - 1 })
        CHECK (ImagePack (std::span (pack).first (length)).Images ().empty ());
    pack.back () = ~pack.back (); // the check sum of the last tile
    ZTiledBitmapImp image ("STRIP.PNG", std::make_shared<TileCache> (pack, 1, kPlenty));
    ZTiledBitmapImp missing ("GONE.PNG", std::make_shared<TileCache> (pack, 1, kPlenty));
    CHECK (missing.GetWidth () == 0);
    ZCairoCanvasImp canvas (24, 30, 1.0);
    canvas.DrawBitmapPlain (image, { 0, 0, 8, 6 }, { 16, 24 });
    canvas.DrawBitmapPlain (missing, { 0, 0, 8, 6 }, {});
    CHECK (Picture (canvas).InkBox ().IsEmpty ());
}
