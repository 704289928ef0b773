#include "pixel_picture.h"
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using test::Compare;
using test::Picture;

namespace
{

constexpr ZRect kAll{ 0, 0, 12, 10 };

/// What is painted on a transparent surface of 12 by 10 coordinates.
template <typename Paint>
Picture Painted (double scale, const Paint& paint)
{
    PictureSurface surface (kAll.right, kAll.bottom, scale);
    paint (surface);
    return Picture (surface);
}

} // namespace

TEST_CASE ("Gdiplus: a frame lies on the rim of what a filling covers")
{
    const auto picture = Painted (1.0,
                                  [] (auto& canvas)
                                  {
                                      canvas.FillRect ({ 1, 1, 5, 4 });
                                      canvas.SetColor ({ 255, 0, 0 }, 255);
                                      canvas.FrameRect ({ 1, 1, 5, 4 });
                                      canvas.MoveTo ({ 7, 2 });
                                      canvas.LineTo ({ 10, 2 });
                                      canvas.LineTo ({ 10, 5 });
                                  });
    CHECK (Compare (picture, R"(
        ............
        .RRRR.......
        .R##R..RRRR.
        .RRRR.....R.
        ..........R.
        ..........R.
        ............
        ............
        ............
        ............)") == "");
}

TEST_CASE ("Gdiplus: lines and rectangles cover the same coordinates at every scale")
{
    const auto paint = [] (auto& canvas)
    {
        canvas.FrameRect ({ 1, 1, 6, 5 });
        canvas.MoveTo ({ 8, 1 });
        canvas.LineTo ({ 8, 7 });
        canvas.SetColor ({ 0, 0, 255 }, 255);
        canvas.FillRect ({ 2, 2, 5, 4 });
    };
    const auto once = Painted (1.0, paint);
    for (const double scale : { 1.25, 1.5, 2.0, 3.0 })
    {
        CAPTURE (scale);
        const auto dense = Painted (scale, paint);
        for (std::int32_t y = 0; y < kAll.bottom; ++y)
            for (std::int32_t x = 0; x < kAll.right; ++x)
            {
                const auto pixel = [scale] (std::int32_t c) { return static_cast<std::int32_t> (c * scale + 0.5); };
                CAPTURE (x);
                CAPTURE (y);
                REQUIRE (dense.At (pixel (x), pixel (y)) == once.At (x, y));
                REQUIRE (dense.At (pixel (x + 1) - 1, pixel (y + 1) - 1) == once.At (x, y));
            }
    }
}

TEST_CASE ("Gdiplus: the clip bounds all that is drawn, an empty one everything")
{
    const auto picture = Painted (1.0,
                                  [] (auto& canvas)
                                  {
                                      canvas.SetClipRect ({ 1, 1, 3, 3 });
                                      canvas.FillRect (kAll);
                                      canvas.SetClipRect ({ 8, 5, 5, 8 });
                                      canvas.FillRect (kAll);
                                      canvas.SetClipEllipse ({ 6, 3, 12, 9 });
                                      canvas.SetColor ({ 0, 255, 0 }, 255);
                                      canvas.FillRect (kAll);
                                      canvas.ClearClip ();
                                      canvas.Clear ({ 0, 2, 12, 3 });
                                  });
    CHECK (picture.At (1, 1) == 0xFF000000);
    CHECK (picture.At (2, 2) == 0);
    CHECK (picture.Part ({ 0, 0, 5, 10 }).InkBox () == ZRect{ 1, 1, 3, 2 });
    const auto ellipse = picture.Part ({ 5, 0, 12, 10 }).InkBox ();
    CHECK (ellipse.left == 0); // its curve begins a coordinate left of and above the rectangle
    CHECK (ellipse.top == 3);
}

TEST_CASE ("Gdiplus: copies blend, leave out a colour, or fade")
{
    PictureSurface source (4, 2, 1.0);
    source.SetColor ({ 255, 0, 255 }, 255);
    source.FillRect ({ 0, 0, 2, 2 });
    source.SetColor ({ 0, 0, 0 }, 255);
    source.FillRect ({ 2, 0, 4, 2 });
    const auto picture = Painted (1.0,
                                  [&source] (auto& canvas)
                                  {
                                      canvas.CopyCanvasPlain (source, { 0, 0, 3, 1 }, { 1, 0 });
                                      canvas.CopyCanvasKeyed (source, { 0, 2, 4, 3 }, {}, { 255, 0, 255 });
                                      canvas.CopyCanvasAlpha (source, { 2, 4, 4, 5 }, { 2, 0 }, 128);
                                      canvas.StretchCanvas (source, { 0, 6, 8, 10 }, { 0, 0, 4, 2 });
                                  });
    CHECK (picture.At (0, 0) == 0xFFFF00FF);
    CHECK (picture.At (2, 0) == 0xFF000000);
    CHECK (picture.At (1, 2) == 0);
    CHECK (picture.At (2, 2) == 0xFF000000);
    CHECK (std::abs (static_cast<int> (picture.At (3, 4) >> 24) - 128) <= 1);
    CHECK (picture.At (1, 7) == 0xFFFF00FF);
    CHECK (picture.At (6, 8) == 0xFF000000);
}

TEST_CASE ("Gdiplus: a text is centred without alignment and cut at its rectangle")
{
    for (const double scale : { 1.0, 2.0 })
    {
        CAPTURE (scale);
        PictureSurface surface (60, 30, scale);
        CHECK (surface.GetTextWidth ("HHHH") > 30);
        surface.DrawText ("HHHH", { 0, 0, 60, 30 }, 0);
        const auto box = Picture (surface).InkBox ();
        CHECK (std::abs ((box.left + box.right) / 2.0 - 30.0 * scale) <= 1.5 * scale);
        CHECK (std::abs ((box.top + box.bottom) / 2.0 - 15.0 * scale) <= 2.0 * scale);

        PictureSurface cut (60, 30, scale);
        cut.DrawText ("HHHH", { 20, 10, 30, 20 }, 0);
        const auto inside = Picture (cut).InkBox ();
        CHECK (inside.left >= 20 * scale);
        CHECK (inside.right <= 30 * scale);
    }
}

TEST_CASE ("Gdiplus: what is drawn is told, within the clip")
{
    PictureSurface surface (12, 10, 2.0);
    ChangedArea changes;
    surface.TrackChanges (&changes);
    surface.SetClipRect ({ 2, 2, 6, 6 });
    surface.FillRect ({ 0, 0, 4, 4 });
    REQUIRE (changes.Rects ().size () == 1);
    CHECK (changes.Rects ()[0] == ZRect{ 4, 4, 8, 8 });
}
