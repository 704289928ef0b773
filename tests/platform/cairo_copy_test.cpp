#include "cairo_bitmap_imp.h"
#include "cairo_canvas_imp.h"

#include "memory_stream.h"
#include "pixel_picture.h"
#include "png.h"
#include <cairo.h>
#include <doctest/doctest.h>
#include <map>

using namespace tessaly;
using test::Compare;
using test::ImageOf;
using test::Picture;

namespace
{

using Pixels_t = std::vector<std::uint32_t>;

constexpr ZColor kRed{ 255, 0, 0 };
constexpr ZColor kGreen{ 0, 255, 0 };
constexpr ZColor kBlue{ 0, 0, 255 };
constexpr double kScales[]{ 1.0, 1.25, 1.5, 2.0 };

void Fill (ZCanvasImp& canvas, const ZRect& rect, ZColor color, std::uint8_t alpha = 255)
{
    canvas.SetColor (color, alpha);
    canvas.FillRect (rect);
}

/// Frames of 4 by 4 in a strip: green, red, blue.
std::unique_ptr<ZCairoCanvasImp> Strip (std::int32_t finer = 1)
{
    auto painted = std::make_unique<ZCairoCanvasImp> (4 * finer, 12 * finer, 1.0);
    std::int32_t top = 0;
    for (const auto color : { kGreen, kRed, kBlue })
    {
        Fill (*painted, { 0, top, 4 * finer, top + 4 * finer }, color);
        top += 4 * finer;
    }
    return painted;
}

class StoreInMemory final : public ZImageStore
{
public:
    std::map<std::pair<std::string, int>, std::vector<std::byte>> files;

    std::span<const std::byte> Find (std::string_view name, std::int32_t density) const override
    {
        const auto found = files.find ({ std::string (name), density });
        return found != files.end () ? std::span<const std::byte> (found->second) : std::span<const std::byte>{};
    }
};

} // namespace

TEST_CASE (
    "copies: plain ones blend the source's alpha, alpha ones scale it, keyed ones leave out the opaque key colour")
{
    // The key, red, what is not quite the key, what is half transparent, and nothing; below that what isn't copied
    ZCairoCanvasImp source (5, 2, 1.0);
    Fill (source, { 0, 0, 5, 2 }, kDefaultColorKey);
    Fill (source, { 1, 0, 2, 1 }, kRed);
    Fill (source, { 2, 0, 3, 1 }, { 255, 0, 254 });
    source.Clear ({ 3, 0, 5, 1 });
    Fill (source, { 3, 0, 4, 1 }, kDefaultColorKey, 128);
    auto image = ImageOf (source);
    ZCairoCanvasImp canvas (6, 7, 1.0);
    Fill (canvas, { 0, 0, 6, 3 }, kBlue);
    canvas.CopyCanvasPlain (source, { 1, 0, 6, 1 }, {});
    canvas.CopyCanvasAlpha (source, { 1, 1, 6, 2 }, {}, 128);
    canvas.DrawBitmapAlpha (image, { 1, 2, 6, 3 }, {}, 128);
    canvas.CopyCanvasKeyed (source, { 1, 3, 6, 4 }, {}, kDefaultColorKey);
    canvas.DrawBitmapKeyed (image, { 1, 4, 6, 5 }, {}, kDefaultColorKey);
    canvas.DrawBitmapKeyed (image, { 1, 5, 6, 6 }, {}, kRed); // another key, then none: the image is as it was
    canvas.DrawBitmapPlain (image, { 1, 6, 6, 7 }, {});
    const Picture picture (canvas);
    CHECK (picture.Row (0) == Pixels_t{ 0xFF0000FF, 0xFFFF00FF, 0xFFFF0000, 0xFFFF00FE, 0xFF8000FF, 0xFF0000FF });
    CHECK (picture.Row (1) == Pixels_t{ 0xFF0000FF, 0xFF8000FF, 0xFF80007F, 0xFF8000FE, 0xFF4000FF, 0xFF0000FF });
    CHECK (picture.Row (2) == picture.Row (1));
    CHECK (picture.Row (3) == Pixels_t{ 0, 0, 0xFFFF0000, 0xFFFF00FE, 0x80800080, 0 });
    CHECK (picture.Row (4) == picture.Row (3));
    CHECK (picture.Row (5) == Pixels_t{ 0, 0xFFFF00FF, 0, 0xFFFF00FE, 0x80800080, 0 });
    CHECK (picture.Row (6) == Pixels_t{ 0, 0xFFFF00FF, 0xFFFF0000, 0xFFFF00FE, 0x80800080, 0 });
}

TEST_CASE ("copies: what lies outside the source draws nothing, and a canvas may be copied onto itself")
{
    auto source = Strip ();
    auto image = ImageOf (*source);
    ZCairoCanvasImp canvas (10, 6, 1.0);
    canvas.DrawBitmapPlain (image, { 1, 1, 5, 5 }, { 2, 10 });
    canvas.CopyCanvasPlain (*source, { 5, 1, 9, 5 }, { -2, -1 });
    canvas.SetClipRect ({ 0, 0, 6, 6 });
    canvas.CopyCanvasPlain (*source, { 0, 5, 10, 6 }, {});
    canvas.ClearClip ();
    canvas.CopyCanvasPlain (canvas, { 1, 2, 10, 3 }, { 0, 2 }); // reads what was there before
    CHECK (Compare (Picture (canvas), R"(
        ..........
        .BB.......
        .BBB...GGG
        .......GG.
        .......GG.
        GGGG......)") == "");
}

TEST_CASE ("copies: a frame of a strip shows nothing of its neighbours at any scale, size and density")
{
    for (const double scale : kScales)
        for (const std::int32_t density : { 1, 2 })
            for (std::int32_t size = 2; size <= 9; ++size)
            {
                CAPTURE (scale);
                CAPTURE (density);
                CAPTURE (size);
                auto image = ImageOf (*Strip (density), density);
                ZCairoCanvasImp canvas (14, 14, scale);
                canvas.StretchBitmap (image, { 3, 1, 3 + size, 1 + size }, { 0, 4, 4, 8 });
                if (size == 4)
                    canvas.DrawBitmapKeyed (image, { 3, 1, 7, 5 }, { 0, 4 }, kGreen);
                ZCairoCanvasImp expected (14, 14, scale);
                Fill (expected, { 3, 1, 3 + size, 1 + size }, kRed);
                CHECK (Picture (canvas).AsText () == Picture (expected).AsText ());
            }
}

TEST_CASE ("images: come from a stream, and from the store by name in any case, finer ones for finer surfaces")
{
    auto png = PngOf (*Strip ());
    const auto size = static_cast<std::int32_t> (png.size ());
    ZMemoryStream stream (png.data (), size, size);
    CHECK (ZCairoBitmapImp ("STRIP.PNG", stream).GetHeight () == 12);

    StoreInMemory store;
    store.files[{ "BOTH.PNG", 1 }] = png;
    store.files[{ "BOTH.PNG", 2 }] = PngOf (*Strip (2));
    store.files[{ "BROKEN.PNG", 1 }] = png;
    store.files[{ "BROKEN.PNG", 2 }] = { png.begin (), png.end () - 20 };
    for (const auto& [name, scale, width] : { std::tuple{ "Both.png", 1.0, 4 },
                                              { "Both.png", 1.25, 8 },
                                              { "both.PNG", 2.0, 8 },
                                              { "broken.png", 2.0, 4 } })
    {
        const auto image = ZCairoBitmapImp::Load (store, name, scale);
        CHECK (image->GetName () == name);
        CHECK (image->GetWidth () == 4);
        CHECK (image->GetHeight () == 12);
        CHECK (cairo_image_surface_get_width (image->Pixels ().surface) == width);
    }
    const auto gone = ZCairoBitmapImp::Load (store, std::string (300, 'x'), 2.0);
    CHECK (gone->GetName ().size () == 255);
    CHECK (gone->GetWidth () == 0);
    ZCairoCanvasImp canvas (8, 8, 1.0); // on which it draws nothing
    canvas.DrawBitmapKeyed (*gone, { 0, 0, 8, 8 }, {}, kRed);
    canvas.StretchBitmap (*gone, { 0, 0, 8, 8 }, { 0, 0, 4, 4 });
    CHECK (Picture (canvas).InkBox ().IsEmpty ());
}
