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
    Patch (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t paneId)
        : ZPane (paneOwner)
    {
        SetFrame (rect);
        SetId (paneId);
    }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetFrame ()); }
};

/// One view on a window's surface, 100 by 50 pixels at (10, 20), and two panes for it.
template <typename View>
struct Surface
{
    PaneDesk desk;
    RecordingCanvasImp back;
    View view{ &desk, { 10, 20, 110, 70 } };
    Patch one{ &desk, { 0, 0, 10, 10 }, 1 };
    Patch two{ &desk, { 5, 5, 15, 15 }, 2 };

    Calls Paint (const ZRect& update = {}, ZPoint origin = {})
    {
        ZOnscreenCanvas canvas (back);
        canvas.SetOrigin (origin);
        view.Paint (canvas, 0, update);
        return back.Take ();
    }
};

} // namespace

TEST_CASE ("ZOffscreenView: paints what is dirty into its pixels and copies them on every pass")
{
    Surface<ZOffscreenView> surface;
    surface.view.AddPane (&surface.one);
    surface.view.AddPane (&surface.two);
    const Calls everything{ "CreateOffscreen 10,20,110,70", "> FillRect 0,0,10,10", "> FillRect 5,5,15,15",
                            "CopyCanvas 10,20,110,70 from 0,0" };
    CHECK (surface.Paint () == everything);
    CHECK (surface.Paint () == Calls{ "CopyCanvas 10,20,110,70 from 0,0" });
    surface.two.SetDirty (true);
    CHECK (surface.Paint () == Calls (everything.begin () + 2, everything.end ()));
    CHECK (surface.back.clip.IsZero ()); // left as it was

    // Repainted whole for an update rectangle that reaches the view; another place and another density need new pixels
    CHECK (surface.Paint ({ 0, 0, 5, 5 }).size () == 1);
    CHECK (surface.Paint ({ 100, 60, 200, 200 }) == Calls (everything.begin () + 1, everything.end ()));
    CHECK (surface.Paint ({}, { 1, 2 }).front () == "CreateOffscreen 11,22,111,72"); // what it lies in has moved
    surface.back.scale = 1.5;
    CHECK (surface.Paint ().size () == 4);
    CHECK (surface.Paint ().size () == 1);

    surface.view.Hide ();
    CHECK (surface.Paint ().empty ());
    surface.view.Show ();
    surface.view.SetFrame ({ 10, 20, 10, 20 }); // without a size: straight on the canvas
    CHECK (surface.Paint () == Calls{ "FillRect 10,20,20,30", "FillRect 15,25,25,35" });
}

TEST_CASE ("ZHoverView: repaints the lower layer where dirty and the upper one always, wherever the view lies")
{
    Surface<ZHoverView> surface;
    surface.view.GetLowerView ().AddPane (&surface.one);
    surface.view.GetUpperView ().AddPane (&surface.two);
    const Calls all{ "CreateOffscreen 10,20,110,70", "CreateOffscreen 10,20,110,70",
                     "> FillRect 0,0,10,10",         "> CopyCanvas 0,0,100,50 from 0,0",
                     "> FillRect 5,5,15,15",         "CopyCanvas 10,20,110,70 from 0,0" };
    CHECK (surface.Paint () == all);
    surface.two.SetDirty (true);
    CHECK (surface.Paint () == Calls (all.begin () + 3, all.end ()));
    CHECK (surface.Paint () == Calls (all.begin () + 3, all.end ()));
    surface.one.SetDirty (true);
    CHECK (surface.Paint () == Calls (all.begin () + 2, all.end ()));
    surface.back.scale = 2.0;
    CHECK (surface.Paint () == all);

    // The pointer finds panes where they are drawn, the upper one first
    ZEvent event (surface.desk.window);
    CHECK (surface.view.FindPane (event, surface.desk.At ({ 12, 22 })) == &surface.one);
    CHECK (surface.view.FindPane (event, surface.desk.At ({ 17, 27 })) == &surface.two);
}

TEST_CASE ("ZMultiTextView: a dragged control's text shows and stays for half a second, else that under the pointer")
{
    Surface<ZMultiTextView> surface;
    auto& desk = surface.desk;
    surface.view.AddPane (&surface.one);
    surface.view.AddPane (&surface.two);
    Patch first (nullptr, {}, 1); // controls
    Patch second (nullptr, {}, 2);
    Patch other (nullptr, {}, 3); // has no text
    struct Row
    {
        ZPane* capture;
        ZPane* hover;
        std::uint32_t milliseconds; // since the row before
        std::int32_t shown;         // the id of the text; 0: none
    };
    for (const auto& row :
         { Row{ nullptr, nullptr, 30, 0 }, Row{ nullptr, &first, 30, 1 }, Row{ nullptr, &other, 30, 0 },
           Row{ &second, &first, 30, 2 }, Row{ nullptr, &first, 30, 2 }, // the hold begins
           Row{ nullptr, nullptr, 250, 2 }, Row{ nullptr, &first, 250, 2 }, Row{ nullptr, &first, 1, 1 },
           Row{ &other, &first, 30, 0 }, Row{ nullptr, &first, 30, 1 } }) // nothing to hold
    {
        desk.capture = row.capture;
        desk.hover = row.hover;
        desk.window.time += row.milliseconds;
        ZEvent event (desk.window);
        surface.view.Idle (event, desk.At ({}, 0));
        CHECK (surface.one.IsVisible () == (row.shown == 1));
        CHECK (surface.two.IsVisible () == (row.shown == 2));
    }
    CHECK_FALSE (surface.one.IsMouseEnabled ());
}
