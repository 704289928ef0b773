#include "multi_text_view.h"
#include "offscreen_view.h"
#include "pane_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

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
struct FixtureWith : PaneFixture
{
    View view{ this, { 10, 20, 110, 70 } };
    Patch one{ this, { 0, 0, 10, 10 }, 1 };
    Patch two{ this, { 5, 5, 15, 15 }, 2 };

    Calls Paint (const ZRect& update = {}, ZPoint origin = {})
    {
        canvas.SetOrigin (origin);
        view.Paint (canvas, 0, update);
        return surface.Take ();
    }
};

} // namespace

TEST_CASE ("ZOffscreenView: paints again what an update reaches, and everything elsewhere or at another density")
{
    FixtureWith<ZOffscreenView> fixture;
    fixture.view.AddPane (&fixture.one);
    fixture.view.AddPane (&fixture.two);
    const Calls everything{ "CreateOffscreen 10,20,110,70", "> FillRect 0,0,10,10", "> FillRect 5,5,15,15",
                            "CopyCanvas 10,20,110,70 from 0,0" };
    CHECK (fixture.Paint () == everything);
    CHECK (fixture.surface.clip.IsZero ()); // left as it was
    CHECK (fixture.Paint ({ 0, 0, 5, 5 }).size () == 1);
    CHECK (fixture.Paint ({ 100, 60, 200, 200 }) == Calls (everything.begin () + 1, everything.end ()));
    CHECK (fixture.Paint ({}, { 1, 2 }).front () == "CreateOffscreen 11,22,111,72"); // what it lies in has moved
    fixture.surface.scale = 1.5;
    CHECK (fixture.Paint ().size () == 4);
    CHECK (fixture.Paint ().size () == 1);

    fixture.view.Hide ();
    CHECK (fixture.Paint ().empty ());
    fixture.view.Show ();
    fixture.view.SetFrame ({ 10, 20, 10, 20 }); // without a size: straight on the canvas
    CHECK (fixture.Paint () == Calls{ "FillRect 10,20,20,30", "FillRect 15,25,25,35" });
}

TEST_CASE ("ZMultiTextView: a dragged control's text shows and stays for half a second, else that under the pointer")
{
    FixtureWith<ZMultiTextView> fixture;
    fixture.view.AddPane (&fixture.one);
    fixture.view.AddPane (&fixture.two);
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
        fixture.capture = row.capture;
        fixture.hover = row.hover;
        fixture.window.time += row.milliseconds;
        fixture.view.Idle (fixture.event, fixture.At ({}, 0));
        CHECK (fixture.one.IsVisible () == (row.shown == 1));
        CHECK (fixture.two.IsVisible () == (row.shown == 2));
    }
    CHECK_FALSE (fixture.one.IsMouseEnabled ());
}
