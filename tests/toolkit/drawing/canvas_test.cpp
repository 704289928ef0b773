#include "recording_canvas.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("ZCanvas: every coordinate moves by the origin, what is empty draws nothing, a colour key is followed")
{
    RecordingCanvasImp back;
    ZOnscreenCanvas canvas (back);
    auto bitmap = NamedBitmap ("knob");
    canvas.SetOrigin ({ 100, 50 });
    ZOffscreenCanvas offscreen (canvas, { 10, 20, 30, 40 });
    canvas.DrawBitmap (bitmap, { 5, 5, 5, 9 }, {});
    canvas.StretchBitmap (bitmap, { 5, 5, 9, 9 }, { 1, 1, 1, 2 });
    canvas.CopyCanvasAlpha (offscreen, { 5, 5, 9, 4 }, {}, 10);
    CHECK_FALSE (canvas.IsModified ());

    std::vector<ZPoint> points{ { 0, 0 }, { 10, 0 }, { 0, 10 } };
    canvas.FramePolygon (points);
    CHECK (points[0] == ZPoint{}); // the caller's points come back as they were
    canvas.MoveTo (1, 2);
    canvas.LineTo (3, 4);
    canvas.DrawText ("x", { 0, 0, 5, 5 }, kAlignLeft);
    canvas.Clear ({ 0, 0, 5, 5 });
    offscreen.FillRect ({ 10, 20, 30, 40 });
    canvas.CopyCanvas (offscreen, { 10, 20, 30, 40 }, { 10, 20 });
    bitmap.SetTransparentColor ({ 1, 2, 3 });
    canvas.DrawBitmap (bitmap, { 5, 5, 9, 9 }, { 7, 8 });
    bitmap.EnableTransparent (false);
    canvas.DrawBitmap (bitmap, { 5, 5, 9, 9 }, { 7, 8 });
    CHECK (canvas.IsModified ());
    CHECK (back.Take () == Calls{ "CreateOffscreen 110,70,130,90", "FramePolygon 100,50", "FramePolygon 110,50",
                                  "FramePolygon 100,60", "MoveTo 101,52", "LineTo 103,54",
                                  "DrawText 'x' 100,50,105,55 1", "Clear 0,0,5,5", "> FillRect 0,0,20,20",
                                  "CopyCanvas 110,70,130,90 from 0,0", "DrawBitmapKeyed knob 105,55,109,59 from 7,8",
                                  "DrawBitmap knob 105,55,109,59 from 7,8" });
}

TEST_CASE ("ZCanvas: points of a curve move by the origin, and are put on the pixels of the surface")
{
    RecordingCanvasImp back;
    ZOnscreenCanvas canvas (back);
    canvas.SetOrigin ({ 1, 10 });
    const std::vector<ZPointF> curve{ { 0.5, 1.25 } };
    canvas.DrawPolyline (curve);
    CHECK (canvas.IsModified ());
    CHECK (back.Take () == Calls{ "DrawPolyline 1.5 11.25" });
    CHECK (canvas.ToDevicePixel ({ 0.4, 1.5 }) == ZPointF{ 0.0, 2.0 });
    back.scale = 2.0;
    CHECK (canvas.ToDevicePixel ({ 0.4, 1.6 }) == ZPointF{ 0.5, 1.5 });
    back.scale = 1.5; // the origin lies between two pixels
    CHECK (canvas.ToDevicePixel ({ 0.0, 0.0 }).x == doctest::Approx (1.0 / 3.0));
}
