#include "pane_desk.h"
#include "recording_canvas.h"
#include "value_index.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// A pane that counts what reaches its handlers.
struct ProbePane : ZPane
{
    using ZPane::ZPane;
    std::vector<std::int32_t> pressButtons;
    ZPoint lastPoint;
    int draws = 0;
    int inactiveDraws = 0;
    int ups = 0;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override
    {
        pressButtons.push_back (mouse.buttons);
        lastPoint = mouse.point;
        event.SetMousePos (mouse.point);
        return true;
    }
    bool OnMouseMove (ZEvent&, const ZMouseInput&) override { return true; }
    bool OnMouseUp (ZEvent&, const ZMouseInput&) override
    {
        ++ups;
        return false;
    }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override
    {
        ++draws;
        canvas.FillRect (GetFrame ());
    }
    void DrawInactive (ZCanvas&, std::uint32_t) override { ++inactiveDraws; }
};

/// A root with a view in it and a pane in that: (100, 50) and (10, 20) deep.
struct Tree
{
    PaneDesk desk;
    ZView root{ &desk, { 0, 0, 500, 300 } };
    ZView view{ &desk, { 100, 50, 300, 250 } };
    ProbePane pane{ &desk };
    RecordingCanvasImp surface;
    ZOnscreenCanvas canvas{ surface };

    Tree ()
    {
        pane.SetFrame ({ 10, 20, 40, 60 });
        pane.SetId (7);
        root.AddPane (&view);
        view.AddPane (&pane);
    }
    void Pass () { root.Paint (canvas, 0, {}); }
};

} // namespace

TEST_CASE ("ZPane: a double click is a second press on the same pixel within the window's time, and a third is plain")
{
    Tree tree;
    const auto clickAfter = [&tree] (std::uint32_t milliseconds, ZPoint point)
    {
        tree.desk.window.time += milliseconds;
        tree.desk.Press (tree.pane, point);
        return (tree.pane.pressButtons.back () & kDoubleClick) != 0;
    };
    CHECK_FALSE (clickAfter (0, { 115, 75 }));
    CHECK (clickAfter (400, { 115, 75 }));
    CHECK_FALSE (clickAfter (0, { 115, 75 }));
    CHECK (clickAfter (0, { 115, 75 }));
    CHECK_FALSE (clickAfter (1000, { 115, 75 }));
    CHECK_FALSE (clickAfter (401, { 115, 75 }));
    CHECK_FALSE (clickAfter (10, { 116, 75 }));
    tree.desk.window.time = 0xFFFFFFF0u;
    CHECK_FALSE (clickAfter (0, { 115, 75 }));
    CHECK (clickAfter (100, { 115, 75 })); // the clock has wrapped
}

TEST_CASE ("ZPane: a handler sees its parent's coordinates, its caller's event comes back as it was")
{
    Tree tree;
    ZEvent event (tree.desk.window);
    event.SetOrigin ({ 3, 4 });
    tree.pane.MouseDown (event, tree.desk.At ({ 115, 75 }));
    CHECK (tree.pane.lastPoint == ZPoint{ 15, 25 });
    CHECK (tree.desk.window.pointer == ZPoint{ 115, 75 });
    CHECK (event.GetOrigin () == ZPoint{ 3, 4 });
}

TEST_CASE ("ZPane: one that ends in its own handler leaves nothing behind")
{
    struct Brief final : ZPane
    {
        using ZPane::ZPane;
        bool OnMouseDown (ZEvent&, const ZMouseInput&) override { return End (); }
        bool OnOpenModal (ZEvent&, const ZMouseInput& mouse) override { return mouse.modifiers != 0; }
        bool OnCloseModal (bool) override { return End (); }
        bool End ()
        {
            delete this;
            return true;
        }
    };
    Tree tree;
    for (const std::int32_t modifiers : { 0, 1 })
    {
        auto* pane = new Brief (&tree.desk);
        tree.view.AddPane (pane);
        CHECK (tree.desk.Press (*pane, { 115, 75 }, modifiers));
        if (modifiers != 0)
            CHECK (pane->CloseModal (true));
        CHECK (tree.view.GetPaneCount () == 1);
        CHECK (tree.desk.modal == nullptr);
    }
}

TEST_CASE ("ZPane: what is hidden or disabled in mid-drag gets its release, and no press")
{
    Tree tree;
    tree.desk.Press (tree.pane, { 115, 75 });
    CHECK (tree.desk.Drag (tree.pane, { 116, 75 }));
    tree.view.SetMouseEnabled (false);
    CHECK_FALSE (tree.desk.Drag (tree.pane, { 117, 75 }));
    CHECK (tree.pane.ups == 1);
    CHECK_FALSE (tree.desk.Press (tree.pane, { 115, 75 }));
    CHECK (tree.pane.pressButtons.size () == 1);
}

TEST_CASE ("ZView: a pass draws what is dirty and nothing else, in the coordinates of its place")
{
    Tree tree;
    tree.Pass ();
    CHECK (tree.surface.Take () == std::vector<std::string>{ "FillRect 110,70,140,110" });
    tree.Pass ();
    tree.pane.SetFrame ({ 10, 20, 40, 60 }); // as it is
    tree.Pass ();
    CHECK (tree.surface.Take ().empty ());

    tree.view.SetDirty (true);
    tree.Pass ();
    CHECK (tree.pane.draws == 2);

    tree.view.SetActive (false);
    tree.Pass ();
    CHECK (tree.pane.inactiveDraws == 1);

    tree.pane.SetDirty (true);
    tree.view.Hide ();
    CHECK_FALSE (tree.pane.IsVisible ());
    tree.Pass ();
    CHECK (tree.pane.inactiveDraws == 1);
    tree.view.Show ();
    CHECK (tree.pane.IsVisible ());
    tree.Pass ();
    CHECK (tree.pane.inactiveDraws == 2);

    tree.pane.SetDirty (true);
    tree.pane.Hide ();
    CHECK_FALSE (tree.pane.IsDirty ());
    CHECK (tree.surface.clip.IsZero ()); // every pane gave the clip back
}

TEST_CASE (
    "ZView: the topmost pane is found, a disabled one and the view itself are not, and panes may end in any order")
{
    Tree tree;
    ZEvent event (tree.desk.window);
    const auto found = [&] (ZPoint point) { return tree.root.FindPane (event, tree.desk.At (point)); };
    {
        ProbePane top (&tree.desk);
        top.SetFrame ({ 20, 20, 50, 60 });
        CHECK (tree.view.AddPane (&top));
        CHECK_FALSE (tree.view.AddPane (&top));
        CHECK_FALSE (tree.view.AddPane (nullptr));
        CHECK_FALSE (tree.view.AddPane (&tree.view));
        CHECK (tree.root.AddPane (&top)); // leaves the first
        CHECK (tree.view.GetPaneCount () == 1);
        CHECK (tree.view.AddPane (&top));
        CHECK (found ({ 125, 75 }) == &top);
        CHECK (found ({ 115, 75 }) == &tree.pane);
        CHECK (found ({ 149, 109 }) == &top);
        CHECK (found ({ 150, 109 }) == nullptr);
        top.SetMouseEnabled (false);
        CHECK (found ({ 125, 75 }) == &tree.pane);
        tree.desk.modal = &top;
    }
    CHECK (tree.view.GetPaneCount () == 1);
    CHECK (tree.desk.modal == nullptr);
    CHECK (found ({ 125, 75 }) == &tree.pane);

    tree.view.FitToPanes ();
    CHECK (tree.view.GetFrame () == ZRect{ 100, 50, 300, 250 });
    tree.pane.MoveTo ({ 190, 10 });
    tree.view.FitToPanes ();
    CHECK (tree.view.GetFrame () == ZRect{ 100, 50, 320, 250 });
}

TEST_CASE ("ZPane: the operations by id reach the id and every pane, values only the id")
{
    PaneDesk desk;
    ZControl control (&desk, { 0, 0, 10, 10 }, 5);
    control.HideById (4);
    CHECK (control.IsVisible ());
    control.HideById (kEveryPane);
    CHECK_FALSE (control.IsVisible ());
    control.ShowById (5);
    CHECK (control.IsVisible ());
    control.SetValueById (kEveryPane, 0.5f);
    CHECK (control.GetValue () == 0.0f);
    control.SetValueById (5, 0.5f);
    CHECK (control.GetBool ());
}

TEST_CASE ("Positions of a switch: a step is one over their number, and the range is cut into equal parts")
{
    CHECK (ValueToIndex (0.34f, 1.0f / 3) == 1);
    CHECK (IndexToValue (1, 1.0f / 3) == 0.5f);
    CHECK (ValueToIndex (0.249f, 0.25f) == 0);
    CHECK (ValueToIndex (0.25f, 0.25f) == 1);
    CHECK (ValueToIndex (1.0f, 0.25f) == 3);
    CHECK (ValueToIndex (1e30f, 0.25f) == 3);
    CHECK (ValueToIndex (-1.0f, 0.25f) == 0);
    for (float single : { 0.0f, -1.0f, 1.0f })
    {
        CHECK (ValueToIndex (1.0f, single) == 0);
        CHECK (IndexToValue (1, single) == 0.0f);
    }
    for (std::int32_t i = 0; i < 10; ++i)
        CHECK (ValueToIndex (IndexToValue (i, 0.1f), 0.1f) == i);
}
