#include "cairo_canvas_imp.h"

#include "pixel_picture.h"
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using test::Compare;
using test::Picture;

namespace
{

constexpr ZColor kRed{ 255, 0, 0 };
constexpr ZColor kBlue{ 0, 0, 255 };
constexpr double kScales[]{ 1.0, 1.25, 1.5, 2.0 };

constexpr int kExact = 0;

} // namespace

TEST_CASE ("canvas: a frame and a filling of one rectangle end at the same pixels, inside it")
{
    ZCairoCanvasImp canvas (16, 6, 1.0);
    canvas.FrameRect ({ 1, 1, 6, 5 });
    canvas.FillRect ({ 7, 1, 12, 5 });
    canvas.FrameRect ({ 13, 1, 14, 2 }); // as small as can be
    canvas.FrameRect ({ 13, 3, 13, 5 }); // and nothing
    canvas.FillRect ({ 15, 4, 13, 5 });
    CHECK (Compare (Picture (canvas), R"(
        ................
        .#####.#####.#..
        .#...#.#####....
        .#...#.#####....
        .#####.#####....
        ................)",
                    kExact) == "");
}

TEST_CASE ("canvas: a transparent colour blends once all along a frame, its corners too")
{
    ZCairoCanvasImp canvas (7, 7, 1.0);
    canvas.SetColor ({ 0, 0, 0 }, 153);
    canvas.SetLineWidth (2); // half before, half behind
    canvas.FrameRect ({ 2, 2, 6, 6 });
    CHECK (Compare (Picture (canvas), R"(
        .......
        .66666.
        .66666.
        .66.66.
        .66666.
        .66666.
        .......)",
                    1) == "");
}

TEST_CASE ("canvas: level and upright lines are sharp and hold both ends, dashed ones show three and leave one")
{
    ZCairoCanvasImp canvas (14, 9, 1.0);
    canvas.MoveTo ({ 1, 1 });
    canvas.LineTo ({ 5, 1 });
    canvas.LineTo ({ 5, 4 });
    canvas.LineTo ({ 3, 4 });
    canvas.SetLineStyle (kDashedLine);
    canvas.MoveTo ({ 12, 7 });
    canvas.LineTo ({ 1, 7 });
    canvas.SetLineStyle (7); // solid again
    canvas.MoveTo ({ 8, 1 });
    canvas.LineTo ({ 8, 1 });
    canvas.SetLineWidth (2);
    canvas.MoveTo ({ 8, 4 });
    canvas.LineTo ({ 11, 4 });
    CHECK (Compare (Picture (canvas), R"(
        ..............
        .#####..#.....
        .....#........
        .....#.8###8..
        ...###.8###8..
        ..............
        ..............
        ..###.###.###.
        ..............)") == "");
}

TEST_CASE ("canvas: sloped lines and polygons are smoothed, crossings stay open")
{
    ZCairoCanvasImp canvas (22, 10, 1.0);
    canvas.MoveTo ({ 1, 1 });
    canvas.LineTo ({ 5, 5 });
    const ZPoint triangle[]{ { 7, 1 }, { 13, 1 }, { 7, 7 } };
    canvas.FillPolygon (triangle);
    const ZPoint square[]{ { 14, 1 }, { 20, 1 }, { 20, 7 }, { 14, 7 }, { 14, 1 },
                           { 16, 3 }, { 16, 5 }, { 18, 5 }, { 18, 3 }, { 16, 3 } }; // and a hole in it
    canvas.FillPolygon (square);
    const ZPoint flat[]{ { 1, 7 }, { 5, 7 }, { 5, 8 }, { 1, 8 } };
    canvas.FramePolygon (flat);
    CHECK (Compare (Picture (canvas), R"(
        ......................
        .83....#####5.######..
        .293...####5..######..
        ..293..###5...##..##..
        ...293.##5....##..##..
        ....38.#5.....######..
        .......5......######..
        .#####................
        .#####................
        ......................)") == "");
}

TEST_CASE ("canvas: the ellipse clip reaches a pixel left of and above its rectangle, and smooths nothing")
{
    ZCairoCanvasImp canvas (15, 9, 1.0);
    canvas.SetClipEllipse ({ 2, 2, 13, 8 });
    canvas.FillRect ({ 0, 0, 15, 9 });
    CHECK (Compare (Picture (canvas), R"(
        ...............
        ....######.....
        ..##########...
        .############..
        .############..
        .############..
        ..##########...
        ....######.....
        ...............)",
                    kExact) == "");
}

TEST_CASE ("canvas: Save and Restore nest and bring the clip back, Clear stays within it")
{
    ZCairoCanvasImp canvas (8, 5, 1.0);
    canvas.SetClipRect ({ 1, 1, 7, 4 });
    canvas.Save ();
    canvas.SetClipRect ({ 3, 2, 5, 3 });
    canvas.Save ();
    canvas.ClearClip ();
    canvas.Restore ();
    canvas.SetColor (kRed, 255);
    canvas.FillRect ({ 0, 0, 8, 5 });
    canvas.Restore ();
    canvas.SetColor (kBlue, 255);
    canvas.FillRect ({ 0, 0, 3, 5 });
    canvas.FillRect ({ 5, 0, 8, 5 });
    canvas.SetClipRect ({ 2, 2, 6, 3 });
    canvas.Clear ({ 4, 0, 8, 5 });
    canvas.Restore (); // one too many does nothing
    canvas.ClearClip ();
    canvas.Clear ({ 1, 1, 2, 2 });
    CHECK (Compare (Picture (canvas), R"(
        ........
        ..B..BB.
        .BBR..B.
        .BB..BB.
        ........)",
                    kExact) == "");
}

TEST_CASE ("canvas: neighbours meet without gap or overlap at every scale")
{
    for (const double scale : kScales)
    {
        CAPTURE (scale);
        ZCairoCanvasImp canvas (41, 3, scale);
        canvas.SetColor ({ 0, 0, 0 }, 128);
        for (std::int32_t x = 0; x < 41; x += 1 + x % 3)
            canvas.FillRect ({ x, 0, x + 1 + x % 3, 1 });
        for (std::int32_t x = 0; x < 41; ++x)
        {
            canvas.SetClipRect ({ x, 1, x + 1, 2 });
            canvas.FillRect ({ 0, 0, 41, 3 });
        }
        canvas.ClearClip ();
        canvas.FillRect ({ 0, 2, 41, 3 });
        const Picture picture (canvas);
        CHECK (picture.Width () == std::lround (41 * scale));
        int odd = 0;
        for (std::int32_t y = 0; y < picture.Height (); ++y)
            for (std::int32_t x = 0; x < picture.Width (); ++x)
                odd += picture.At (x, y) != 0x80000000;
        CHECK (odd == 0);
    }
}

TEST_CASE ("canvas: at scale 2 lines are twice as wide")
{
    ZCairoCanvasImp canvas (5, 5, 2.0);
    canvas.SetLineWidth (2);
    const ZPoint square[]{ { 1, 1 }, { 4, 1 }, { 4, 4 }, { 1, 4 } };
    canvas.FramePolygon (square);
    CHECK (Compare (Picture (canvas), R"(
        ##########
        ##########
        ##########
        ##########
        ####..####
        ####..####
        ##########
        ##########
        ##########
        ##########)",
                    kExact) == "");
}

TEST_CASE ("canvas: any number is taken, as size, scale, coordinate or width")
{
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min ();
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max ();
    for (const double scale : { 1.5, 0.0, -1.0, std::numeric_limits<double>::quiet_NaN (), 1e300 })
    {
        CAPTURE (scale);
        ZCairoCanvasImp canvas (20, 20, scale);
        const ZRect all{ kLeast, kLeast, kMost, kMost };
        const ZPoint far[]{ { kLeast, kMost }, { kMost, kMost }, { 0, kLeast } };
        canvas.SetClipEllipse (all);
        canvas.SetLineWidth (kMost);
        canvas.SetLineWidth (-1);
        canvas.SetLineStyle (kDashedLine);
        canvas.MoveTo ({ kLeast, 3 });
        canvas.LineTo ({ kMost, 3 });
        canvas.LineTo ({ kLeast, kLeast });
        canvas.FrameRect (all);
        canvas.FramePolygon (far);
        canvas.FillPolygon (far);
        canvas.FillPolygon ({});
        canvas.FramePolygon ({});
        canvas.SetFont ("Arial", kMost, -1);
        canvas.DrawText ("x", all, kMost);
        canvas.SetFont ("", kLeast, 0);
        CHECK (canvas.GetTextWidth ("x") == 0);
        CHECK (canvas.GetFontSize () == kLeast);
        canvas.CopyCanvasPlain (canvas, all, { kMost, kLeast });
        canvas.StretchCanvas (canvas, { 0, 0, 1, 1 }, all);
        canvas.SetClipRect (all);
        canvas.FillRect (all);
        CHECK (Picture (canvas).At (19, 19) == 0xFF000000);
    }
    for (const std::int32_t size : { -5, 0, 100000 })
    {
        ZCairoCanvasImp canvas (size, size, 1.0);
        canvas.SetClipRect ({ 0, 0, 5, 5 });
        canvas.FillRect ({ 0, 0, 5, 5 });
        canvas.DrawText ("x", { 0, 0, 5, 5 }, 0);
        ZCairoCanvasImp target (5, 5, 1.0);
        target.CopyCanvasPlain (canvas, { 0, 0, 5, 5 }, {});
        CHECK (Picture (target).InkBox ().IsEmpty ());
    }
}
