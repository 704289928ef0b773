#include "skin_bitmaps.h"

#include "cairo_canvas_imp.h"
#include "images.h"
#include "pixel_picture.h"
#include <algorithm>
#include <cairo.h>
#include <cctype>
#include <doctest/doctest.h>

using namespace tessaly;
using test::Picture;

namespace
{

std::string ResourceName (const skin::Image& image)
{
    std::string name = std::string (image.name) + ".PNG";
    std::transform (name.begin (), name.end (), name.begin (),
                    [] (unsigned char c) { return static_cast<char> (std::toupper (c)); });
    return name;
}

constexpr std::size_t kMebi = std::size_t{ 1 } << 20U;

} // namespace

TEST_CASE ("skin bitmaps: every frame of every image is drawn as it was made, at both densities")
{
    for (const std::int32_t density : { 1, 2 })
        for (const skin::Image& image : skin::Images ())
        {
            CAPTURE (image.name);
            CAPTURE (density);
            const auto bitmap = CreateSkinBitmap (ResourceName (image), density);
            REQUIRE (bitmap->GetWidth () == static_cast<std::uint32_t> (image.width * image.columns));
            REQUIRE (bitmap->GetHeight () == static_cast<std::uint32_t> (image.height * image.rows));
            const auto made = skin::Draw (image, density);
            const auto* pixels =
                reinterpret_cast<const std::uint32_t*> (cairo_image_surface_get_data (made.Surface ()));
            const auto stride = std::ptrdiff_t{ image.width } * image.columns * density;
            bool equal = true;
            for (std::int32_t row = 0; row < image.rows; row += std::max (1, image.rows / 7))
                for (std::int32_t column = image.columns - 1; column >= 0; --column)
                {
                    ZCairoCanvasImp canvas (image.width, image.height, density);
                    canvas.DrawBitmapPlain (*bitmap, { 0, 0, image.width, image.height },
                                            { column * image.width, row * image.height });
                    const Picture drawn (canvas);
                    for (std::int32_t y = 0; y < drawn.Height (); ++y)
                    {
                        const auto line = drawn.Row (y);
                        equal &= std::equal (line.begin (), line.end (),
                                             pixels + (std::ptrdiff_t{ row } * image.height * density + y) * stride +
                                                 std::ptrdiff_t{ column } * image.width * density);
                    }
                }
            CHECK (equal);
        }
}

TEST_CASE ("skin bitmaps: know their size without pixels, share those that are drawn, and free them with the last")
{
    REQUIRE (SkinBytesHeld () == 0);
    auto first = CreateSkinBitmap ("MONO_TSLY_BAK.PNG", 1.0);
    CHECK (first->GetHeight () == 315);
    CHECK (SkinBytesHeld () == 0);
    ZCairoCanvasImp canvas (560, 315, 1.0);
    canvas.DrawBitmapPlain (*first, { 0, 0, 560, 315 }, {});
    const auto held = SkinBytesHeld ();
    CHECK (held == 4 * 560 * 315);

    auto second = CreateSkinBitmap ("MONO_TSLY_BAK.PNG", 1.0);
    first.reset ();
    canvas.DrawBitmapPlain (*second, { 0, 0, 560, 315 }, {});
    CHECK (SkinBytesHeld () == held);
    second.reset ();
    CHECK (SkinBytesHeld () == 0);
    CHECK (CreateSkinBitmap ("GONE.PNG", 1.0)->GetWidth () == 0);
}

TEST_CASE ("skin bitmaps: every frame of every dial, drawn once, takes a bounded part of the memory")
{
    for (const double scale : { 1.0, 2.0 })
    {
        const auto morph = CreateSkinBitmap ("TSLY_KNB_MRP.PNG", scale);
        const auto ring = CreateSkinBitmap ("TSLY_KNB_GID.PNG", scale);
        ZCairoCanvasImp canvas (164, 107, scale);
        for (std::int32_t frame = 0; frame < 101; ++frame)
        {
            for (std::int32_t column = 0; column < 3; ++column)
                canvas.DrawBitmapPlain (*morph, { 0, 0, 164, 92 }, { 164 * column, 92 * frame });
            canvas.DrawBitmapPlain (*ring, { 0, 0, 107, 107 }, { 0, 107 * frame });
        }
        CHECK (SkinBytesHeld () <= (scale > 1.0 ? 18 : 5) * kMebi);
    }
}
