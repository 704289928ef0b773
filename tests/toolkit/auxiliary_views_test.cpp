#include "hover_view.h"
#include "multi_text_view.h"
#include "offscreen_view.h"
#include "pane_desk.h"
#include "recording_canvas.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

using Calls = RecordingCanvasImp::Log;

/// A pane that fills its frame.
struct Patch final : ZPane
{
    Patch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t paneId = kNewPaneId)
        : ZPane (paneOwner)
    {
        SetFrame (rect);
        SetId (paneId);
    }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetFrame ()); }
};

/// One view on a window's surface, 100 by 50 pixels at (10, 20).
template <typename View>
struct Surface
{
    PaneDesk desk;
    RecordingCanvasImp back;
    View view{ &desk, { 10, 20, 110, 70 } };

    Calls Paint ()
    {
        back.Take ();
        ZOnscreenCanvas canvas (back);
        view.Paint (canvas, 0, {});
        return back.Take ();
    }
};

} // namespace

TEST_CASE ("ZOffscreenView: paints what is dirty into its pixels and copies them on every pass")
{
    Surface<ZOffscreenView> surface;
    Patch one (&surface.desk, { 0, 0, 10, 10 });
    Patch two (&surface.desk, { 30, 0, 40, 10 });
    surface.view.AddPane (&one);
    surface.view.AddPane (&two);
    const Calls everything{ "CreateOffscreen 10,20,110,70", "> FillRect 0,0,10,10", "> FillRect 30,0,40,10",
                            "CopyCanvas 10,20,110,70 from 0,0" };
    CHECK (surface.Paint () == everything);
    CHECK (surface.Paint () == Calls{ "CopyCanvas 10,20,110,70 from 0,0" });
    two.SetDirty (true);
    CHECK (surface.Paint () == Calls{ "> FillRect 30,0,40,10", "CopyCanvas 10,20,110,70 from 0,0" });
    CHECK (surface.back.clip.IsZero ()); // left as it was

    SUBCASE ("a move and another density need new pixels, and so all of them")
    {
        surface.view.MoveTo ({ 0, 0 });
        CHECK (surface.Paint ().size () == everything.size ());
        ZOnscreenCanvas canvas (surface.back);
        canvas.SetOrigin ({ 1, 2 }); // what it lies in has moved
        surface.view.Paint (canvas, 0, {});
        CHECK (surface.back.Take ().front () == "CreateOffscreen 1,2,101,52");
        surface.back.scale = 1.5;
        CHECK (surface.Paint ().size () == everything.size ());
        CHECK (surface.Paint ().size () == 1);
    }
    SUBCASE ("hidden or without a size it draws nothing and keeps nothing")
    {
        surface.view.Hide ();
        CHECK (surface.Paint ().empty ());
        surface.view.Show ();
        surface.view.SetFrame ({ 10, 20, 10, 20 });
        CHECK (surface.Paint () == Calls{ "FillRect 10,20,20,30", "FillRect 40,20,50,30" }); // straight on the canvas
    }
    SUBCASE ("an update rectangle of the surface repaints all")
    {
        ZOnscreenCanvas canvas (surface.back);
        surface.back.Take ();
        surface.view.Paint (canvas, 0, { 0, 0, 5, 5 });
        CHECK (surface.back.Take ().size () == 1);
        surface.view.Paint (canvas, 0, { 100, 60, 200, 200 });
        CHECK (surface.back.Take ().size () == 3);
    }
}

TEST_CASE ("ZHoverView: repaints the lower layer where dirty and the upper one always, wherever the view lies")
{
    Surface<ZHoverView> surface;
    Patch below (&surface.desk, { 0, 0, 10, 10 }, 1);
    Patch above (&surface.desk, { 5, 5, 15, 15 }, 2);
    surface.view.GetLowerView ().AddPane (&below);
    surface.view.GetUpperView ().AddPane (&above);
    const Calls all{ "CreateOffscreen 10,20,110,70", "CreateOffscreen 10,20,110,70",
                     "> FillRect 0,0,10,10",         "> CopyCanvas 0,0,100,50 from 0,0",
                     "> FillRect 5,5,15,15",         "CopyCanvas 10,20,110,70 from 0,0" };
    const Calls moving (all.begin () + 3, all.end ());
    CHECK (surface.Paint () == all);
    above.SetDirty (true);
    CHECK (surface.Paint () == moving);
    CHECK (surface.Paint () == moving);
    below.SetDirty (true);
    CHECK (surface.Paint () == Calls (all.begin () + 2, all.end ()));
    surface.view.SetDirty (true);
    CHECK (surface.Paint () == Calls (all.begin () + 2, all.end ()));
    surface.back.scale = 2.0;
    CHECK (surface.Paint () == all);

    // The pointer finds panes where they are drawn, the upper one first
    ZEvent event (surface.desk.window);
    CHECK (surface.view.FindPane (event, surface.desk.At ({ 12, 22 })) == &below);
    CHECK (surface.view.FindPane (event, surface.desk.At ({ 17, 27 })) == &above);
    surface.view.SetFrame ({ 0, 0, 8, 8 });
    CHECK (surface.view.FindPane (event, surface.desk.At ({ 9, 9 })) == nullptr);
    CHECK (surface.Paint ()[0] == "CreateOffscreen 0,0,8,8");
}

TEST_CASE ("ZMultiTextView: a dragged control's text shows and stays for half a second, else that under the pointer")
{
    Surface<ZMultiTextView> surface;
    auto& desk = surface.desk;
    Patch first (&desk, { 0, 0, 10, 10 }, 1);
    Patch second (&desk, { 0, 0, 10, 10 }, 2);
    Patch one (nullptr, {}, 1); // controls
    Patch two (nullptr, {}, 2);
    Patch other (nullptr, {}, 3);
    CHECK_FALSE (surface.view.AddPane (nullptr));
    surface.view.AddPane (&first);
    surface.view.AddPane (&second);
    CHECK_FALSE (first.IsMouseEnabled ());
    const auto shown = [&] (ZPane* capture, ZPane* hover, std::uint32_t milliseconds)
    {
        desk.capture = capture;
        desk.hover = hover;
        desk.window.time += milliseconds;
        ZEvent event (desk.window);
        surface.view.Idle (event, desk.At ({}, 0));
        CHECK_FALSE ((first.IsVisible () && second.IsVisible ()));
        return first.IsVisible () ? 1 : second.IsVisible () ? 2 : 0;
    };
    CHECK (shown (nullptr, nullptr, 30) == 0);
    CHECK (shown (nullptr, &one, 30) == 1);
    CHECK (shown (nullptr, &other, 30) == 0); // no text for it
    CHECK (shown (&two, &one, 30) == 2);
    CHECK (shown (nullptr, &one, 30) == 2); // the hold begins
    CHECK (shown (nullptr, nullptr, 250) == 2);
    CHECK (shown (nullptr, &one, 250) == 2);
    CHECK (shown (nullptr, &one, 1) == 1);
    CHECK (shown (&other, &one, 30) == 0); // dragged, but without a text: nothing to hold
    CHECK (shown (nullptr, &one, 30) == 1);
}
