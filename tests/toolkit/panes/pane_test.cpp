#include "pane_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// A pane that keeps the last press and counts its releases.
struct ProbePane : ZPane
{
    using ZPane::ZPane;
    ZMouseInput pressed;
    int ups = 0;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override
    {
        pressed = mouse;
        event.SetMousePos (mouse.point);
        return true;
    }
    bool OnOpenModal (ZEvent&, const ZMouseInput& mouse) override { return mouse.modifiers != 0; }
    bool OnMouseMove (ZEvent&, const ZMouseInput&) override { return true; }
    bool OnMouseUp (ZEvent&, const ZMouseInput&) override { return ++ups == 0; }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetFrame ()); }
    void DrawInactive (ZCanvas& canvas, std::uint32_t) override { canvas.FrameRect (GetFrame ()); }
};

/// A view at (100, 50) in the whole, and a pane at (10, 20) in it.
struct Tree : PaneFixture
{
    ZView whole{ this, { 0, 0, 500, 300 } };
    ZView view{ this, { 100, 50, 300, 250 } };
    ProbePane pane{ this };

    Tree ()
    {
        pane.SetFrame ({ 10, 20, 40, 60 });
        whole.AddPane (&view);
        view.AddPane (&pane);
    }
    std::string Pass () ///< the only call of a pass; empty without one
    {
        whole.Paint (canvas, 0, {});
        const auto calls = surface.Take ();
        CHECK (calls.size () <= 1);
        return calls.empty () ? "" : calls[0].words;
    }
};

} // namespace

TEST_CASE_FIXTURE (Tree, "ZPane: a handler sees its parent's coordinates, and its release when disabled in mid-drag")
{
    event.SetOrigin ({ 3, 4 });
    Press (pane, { 115, 75 });
    CHECK (pane.pressed.point == ZPoint{ 15, 25 });
    CHECK (window.pointer == ZPoint{ 115, 75 });
    CHECK (event.GetOrigin () == ZPoint{ 3, 4 });

    CHECK (Drag (pane, { 116, 75 }));
    view.SetMouseEnabled (false);
    CHECK_FALSE (Drag (pane, { 117, 75 }));
    CHECK (pane.ups == 1);
    CHECK_FALSE (Press (pane, { 115, 75 }));
}

TEST_CASE_FIXTURE (Tree, "ZView: a pass draws what is dirty and nothing else, in the coordinates of its place")
{
    CHECK (Pass () == "FillRect 110,70,140,110");
    pane.SetFrame ({ 10, 20, 40, 60 }); // as it is
    CHECK (Pass () == "");
    view.HideById (5); // another one's
    view.SetActive (false);
    CHECK (Pass () == "FrameRect 110,70,140,110");
    pane.SetDirty (true);
    view.HideById (kEveryPane);
    CHECK (Pass () == "");
    view.ShowById (kNewPaneId); // its own
    CHECK (Pass () == "FrameRect 110,70,140,110");
    pane.SetDirty (true);
    pane.Hide ();
    CHECK_FALSE (pane.IsDirty ());
    CHECK (surface.clip.IsZero ()); // every pane gave the clip back
}

TEST_CASE_FIXTURE (Tree, "ZView: the topmost pane is found, a disabled one and the view are not, and panes may end")
{
    const auto found = [this] (ZPoint point) { return whole.FindPane (event, At (point)); };
    {
        ProbePane top (this);
        top.SetFrame ({ 20, 20, 50, 60 });
        CHECK (view.AddPane (&top));
        CHECK_FALSE (view.AddPane (nullptr));
        CHECK_FALSE (view.AddPane (&view));
        CHECK (whole.AddPane (&top)); // leaves the first
        CHECK (found ({ 125, 75 }) == &pane);
        CHECK (view.AddPane (&top));
        CHECK (found ({ 125, 75 }) == &top);
        CHECK (found ({ 115, 75 }) == &pane);
        top.SetMouseEnabled (false);
        CHECK (found ({ 125, 75 }) == &pane);
        CHECK_FALSE (top.OpenModal (event, At ({ 125, 75 }, 0, kShift)));
        modal = &top;
    }
    CHECK (modal == nullptr);
    CHECK (found ({ 125, 75 }) == &pane);
    pane.MoveTo ({ 190, 10 });
    view.FitToPanes ();
    CHECK (view.GetFrame () == ZRect{ 100, 50, 320, 250 });
}
