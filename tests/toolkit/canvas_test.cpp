#include "event.h"
#include "fake_event.h"
#include "recording_canvas.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Calls = RecordingCanvasImp::Log;

TEST_CASE ("ZCanvas: every coordinate moves by the origin, the caller's points come back as they were")
{
    RecordingCanvasImp back;
    ZOnscreenCanvas canvas (back);
    canvas.SetOrigin ({ 100, 50 });
    std::vector<ZPoint> points{ { 0, 0 }, { 10, 0 }, { 0, 10 } };
    const auto before = points;
    canvas.FramePolygon (points);
    canvas.FillPolygon ({});
    canvas.MoveTo (1, 2);
    canvas.LineTo (3, 4);
    canvas.DrawText ("x", { 0, 0, 5, 5 }, kAlignLeft);
    canvas.Clear ({ 0, 0, 5, 5 });
    CHECK (points == before);
    CHECK (back.Calls () == Calls{ "FramePolygon 100,50 110,50 100,60", "FillPolygon", "MoveTo 101,52", "LineTo 103,54",
                                   "DrawText 'x' 100,50,105,55 1", "Clear 0,0,5,5" });
    canvas.SetClipRect ({ 0, 0, 5, 5 });
    CHECK (back.clip == ZRect{ 100, 50, 105, 55 });
}

TEST_CASE ("ZCanvas: a copy follows the source's colour key and origin, an empty one is none")
{
    RecordingCanvasImp back;
    ZOnscreenCanvas canvas (back);
    auto bitmap = NamedBitmap ("knob");
    canvas.SetOrigin ({ 3, 4 });
    ZOffscreenCanvas offscreen (canvas, { 10, 20, 30, 40 });
    offscreen.FillRect ({ 10, 20, 30, 40 });
    canvas.CopyCanvas (offscreen, { 10, 20, 30, 40 }, { 10, 20 });
    CHECK (back.Take () ==
           Calls{ "CreateOffscreen 13,24,33,44", "> FillRect 0,0,20,20", "CopyCanvas 13,24,33,44 from 0,0" });
    canvas.SetOrigin ({});

    CHECK (canvas.IsModified ());
    canvas.SetModified (false);
    canvas.DrawBitmap (bitmap, { 5, 5, 5, 9 }, {});
    canvas.StretchBitmap (bitmap, { 5, 5, 9, 9 }, { 1, 1, 1, 2 });
    canvas.CopyCanvasAlpha (offscreen, { 5, 5, 9, 4 }, {}, 10);
    CHECK (back.Calls ().empty ());
    CHECK_FALSE (canvas.IsModified ());

    bitmap.SetTransparentColor ({ 1, 2, 3 });
    canvas.DrawBitmap (bitmap, { 5, 5, 9, 9 }, { 7, 8 });
    bitmap.EnableTransparent (false);
    canvas.DrawBitmap (bitmap, { 5, 5, 9, 9 }, { 7, 8 });
    CHECK (bitmap.GetTransparentColor () == ZColor{ 1, 2, 3 });
    CHECK (back.Take () == Calls{ "DrawBitmapKeyed knob 5,5,9,9 from 7,8", "DrawBitmap knob 5,5,9,9 from 7,8" });
}

TEST_CASE ("Guards: origin and clip of a canvas and the origin of an event come back however often they moved")
{
    RecordingCanvasImp back;
    ZOnscreenCanvas canvas (back);
    canvas.SetOrigin ({ 1, 1 });
    canvas.SetClipRect ({ 0, 0, 9, 9 });
    {
        const ZCanvasStateSt state (canvas);
        canvas.SetOrigin ({ 2, 2 });
        canvas.SetOrigin ({ 3, 3 });
        canvas.ClearClip ();
    }
    CHECK (canvas.GetOrigin () == ZPoint{ 1, 1 });
    CHECK (back.clip == ZRect{ 1, 1, 10, 10 });

    FakeEvent window;
    ZEvent event (window);
    event.SetOrigin ({ 100, 50 });
    window.pointer = { 110, 60 };
    CHECK (event.GetMousePos () == ZPoint{ 10, 10 });
    event.SetMousePos ({ 20, 20 });
    CHECK (window.pointer == ZPoint{ 120, 70 });
    event.SetDoubleClickTime (123);
    CHECK (event.GetDoubleClickTime () == 123);
    event.SetDoubleClickTime (0);
    CHECK (event.GetDoubleClickTime () == window.doubleClickTime);
    event.SetCursor (kHandCursor);
    event.SetCursor (kDefaultCursor);
    CHECK (window.cursor == 0);
}
