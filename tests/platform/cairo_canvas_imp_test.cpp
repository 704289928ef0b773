#include "cairo_canvas_imp.h"

#include "pixel_picture.h"
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using test::Compare;
using test::Picture;

TEST_CASE ("canvas: lines, polygons and rectangles end at their pixels, only what slopes is smoothed")
{
    ZCairoCanvasImp canvas (59, 10, 1.0);
    canvas.MoveTo ({ 1, 1 });
    canvas.LineTo ({ 5, 1 });
    canvas.LineTo ({ 5, 4 });
    canvas.LineTo ({ 3, 4 });
    canvas.MoveTo ({ 8, 1 });
    canvas.LineTo ({ 8, 1 });
    canvas.SetLineStyle (kDashedLine);
    canvas.MoveTo ({ 12, 7 });
    canvas.LineTo ({ 1, 7 });
    canvas.SetLineStyle (7); // solid again
    canvas.MoveTo ({ 15, 1 });
    canvas.LineTo ({ 19, 5 });
    const ZPoint flat[]{ { 15, 7 }, { 19, 7 }, { 19, 8 }, { 15, 8 } };
    canvas.FramePolygon (flat);
    canvas.SetLineWidth (2); // corners between two pixels
    const ZPoint triangle[]{ { 21, 1 }, { 27, 1 }, { 21, 7 } };
    canvas.FillPolygon (triangle);
    const ZPoint square[]{ { 28, 1 }, { 34, 1 }, { 34, 7 }, { 28, 7 }, { 28, 1 },
                           { 30, 3 }, { 30, 5 }, { 32, 5 }, { 32, 3 }, { 30, 3 } }; // and a hole in it
    canvas.FillPolygon (square);
    canvas.SetLineWidth (1);
    canvas.FrameRect ({ 36, 1, 41, 5 });
    canvas.FillRect ({ 42, 1, 47, 5 });
    canvas.FrameRect ({ 48, 1, 49, 2 }); // as small as can be
    canvas.FrameRect ({ 48, 3, 48, 5 }); // and nothing
    canvas.FillRect ({ 50, 4, 48, 5 });
    canvas.SetLineWidth (2); // half before, half after
    canvas.MoveTo ({ 8, 4 });
    canvas.LineTo ({ 11, 4 });
    canvas.SetColor ({ 0, 0, 0 }, 153); // blends once, in the corners too
    canvas.FrameRect ({ 53, 2, 57, 6 });
    CHECK (Compare (Picture (canvas), R"(
        ...........................................................
        .#####..#......83....#####5.######..#####.#####.#...66666..
        .....#.........293...####5..######..#...#.#####.....66666..
        .....#.8###8....293..###5...##..##..#...#.#####.....66.66..
        ...###.8###8.....293.##5....##..##..#####.#####.....66666..
        ..................38.#5.....######..................66666..
        .....................5......######.........................
        ..###.###.###..#####.......................................
        ...............#####.......................................
        ...........................................................)",
                    test::kSmoothTolerance) == "");
}

TEST_CASE ("canvas: a curve of whole points is drawn as lines and polygons are, others lie between")
{
    const std::vector<ZPoint> whole{ { 1, 1 }, { 5, 1 }, { 9, 6 }, { 12, 2 } };
    const std::vector<ZPointF> same{ { 0.0, -1.0 }, { 4.0, -1.0 }, { 8.0, 4.0 }, { 11.0, 0.0 } };
    for (const double scale : { 1.0, 1.5, 2.0 })
    {
        CAPTURE (scale);
        ZCairoCanvasImp lines (14, 8, scale);
        ZCairoCanvasImp curve (14, 8, scale);
        for (auto* canvas : { &lines, &curve })
            canvas->SetColor ({ 0, 0, 0 }, 128); // so that what is drawn twice is seen
        lines.MoveTo (whole[0]);
        for (const auto& point : whole)
            if (&point != &whole[0])
                lines.LineTo (point);
        lines.FillPolygon (whole);
        curve.DrawPolyline (same, { 1, 2 });
        curve.FillPolygon (same, { 1, 2 });
        CHECK (Picture (curve).IsLike (Picture (lines), 0));
    }
    ZCairoCanvasImp dense (4, 3, 2.0);
    dense.SetLineWidth (2);
    const std::vector<ZPointF> halves{ { 0.5, 0.5 }, { 2.5, 0.5 }, { 2.5, 1.5 }, { 0.5, 1.5 } };
    dense.FillPolygon (halves, {});
    CHECK (Compare (Picture (dense), R"(
        ........
        .####...
        .####...
        ........
        ........
        ........)") == "");
}

TEST_CASE ("canvas: clips nest, hold for all, and an ellipse reaches a pixel left of and above its rectangle")
{
    ZCairoCanvasImp canvas (21, 9, 1.0);
    canvas.SetClipRect ({ 1, 1, 7, 4 });
    canvas.Save ();
    canvas.SetClipRect ({ 3, 2, 5, 3 });
    canvas.Save ();
    canvas.ClearClip ();
    canvas.Restore ();
    canvas.SetColor ({ 255, 0, 0 }, 255);
    canvas.FillRect ({ 0, 0, 21, 9 });
    canvas.Restore ();
    canvas.SetColor ({ 0, 0, 255 }, 255);
    canvas.FillRect ({ 0, 0, 3, 5 });
    canvas.FillRect ({ 5, 0, 8, 5 });
    canvas.SetClipRect ({ 2, 2, 6, 3 });
    canvas.Clear ({ 4, 0, 8, 5 });
    canvas.Restore (); // one too many does nothing
    canvas.SetClipEllipse ({ 8, 2, 19, 8 });
    canvas.FillRect ({ 0, 0, 21, 9 });
    CHECK (Compare (Picture (canvas), R"(
        .....................
        .BB..BB...BBBBBB.....
        .BBR..B.BBBBBBBBBB...
        .BB..BBBBBBBBBBBBBB..
        .......BBBBBBBBBBBB..
        .......BBBBBBBBBBBB..
        ........BBBBBBBBBB...
        ..........BBBBBB.....
        .....................)") == "");
}

TEST_CASE ("canvas: neighbours meet without gap or overlap, and lines are as much wider, at every scale")
{
    for (const double scale : { 1.0, 1.25, 1.5, 2.0 })
    {
        CAPTURE (scale);
        ZCairoCanvasImp canvas (41, 2, scale);
        canvas.SetColor ({ 0, 0, 0 }, 128);
        for (std::int32_t x = 0; x < 41; x += 1 + x % 3)
            canvas.FillRect ({ x, 0, x + 1 + x % 3, 1 });
        for (std::int32_t x = 0; x < 41; ++x)
        {
            canvas.SetClipRect ({ x, 1, x + 1, 2 });
            canvas.FillRect ({ 0, 0, 41, 3 });
        }
        ZCairoCanvasImp whole (41, 2, scale);
        whole.SetColor ({ 0, 0, 0 }, 128);
        whole.FillRect ({ 0, 0, 50, 50 });
        CHECK (Picture (canvas).IsLike (Picture (whole), 0));

        ZCairoCanvasImp lines (20, 20, scale);
        lines.SetLineWidth (8);
        lines.MoveTo ({ 10, 10 });
        lines.LineTo ({ 10, 10 });
        CHECK (std::abs (Picture (lines).InkBox ().Width () - 8 * scale) <= 1.0);
    }
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
        const ZPointF lost[]{ { 1e300, std::numeric_limits<double>::quiet_NaN () }, { -1e300, 0.5 }, { 0.5, 1e300 } };
        canvas.DrawPolyline (lost, { kMost, kLeast });
        canvas.FillPolygon (lost, {});
        canvas.DrawPolyline ({}, {});
        canvas.SetFont ("Arial", kMost, -1);
        canvas.DrawText ("x", all, kMost);
        canvas.SetFont ("", kLeast, 0);
        CHECK (canvas.GetTextWidth ("x") == 0);
        canvas.CopyCanvasPlain (canvas, all, { kMost, kLeast });
        canvas.StretchCanvas (canvas, { 0, 0, 1, 1 }, all);
        canvas.SetClipRect (all);
        canvas.FillRect (all);
        CHECK (Picture (canvas).At (19, 19) == 0xFF000000);
    }
    for (const std::int32_t size : { -5, 0, 100000 })
    {
        ZCairoCanvasImp canvas (size, size, 1.0);
        canvas.FillRect ({ 0, 0, 5, 5 });
        canvas.DrawText ("x", { 0, 0, 5, 5 }, 0);
        ZCairoCanvasImp target (5, 5, 1.0);
        target.CopyCanvasPlain (canvas, { 0, 0, 5, 5 }, {});
        CHECK (Picture (target).InkBox ().IsEmpty ());
    }
}
