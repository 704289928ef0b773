#include "pane_desk.h"
#include "recording_canvas.h"
#include "value_index.h"
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
    bool OnMouseMove (ZEvent&, const ZMouseInput&) override { return true; }
    bool OnMouseUp (ZEvent&, const ZMouseInput&) override { return ++ups == 0; }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetFrame ()); }
    void DrawInactive (ZCanvas& canvas, std::uint32_t) override { canvas.FrameRect (GetFrame ()); }
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
        root.AddPane (&view);
        view.AddPane (&pane);
    }
    std::string Pass () ///< the only call of a pass; empty without one
    {
        root.Paint (canvas, 0, {});
        const auto calls = surface.Take ();
        CHECK (calls.size () <= 1);
        return calls.empty () ? "" : calls[0];
    }
};

} // namespace

TEST_CASE ("ZPane: a double click is a second press on the same pixel within the window's time, and a third is plain")
{
    Tree tree;
    struct Row
    {
        std::uint32_t time;
        std::int32_t x;
        bool isDouble;
    };
    for (const auto& row : { Row{ 1000, 115, false }, Row{ 1400, 115, true }, Row{ 1400, 115, false },
                             Row{ 1400, 115, true }, Row{ 2400, 115, false }, Row{ 2801, 115, false },
                             Row{ 2810, 116, false }, Row{ 0xFFFFFFF0u, 116, false }, Row{ 100, 116, true } }) // wraps
    {
        CAPTURE (row.time);
        tree.desk.window.time = row.time;
        tree.desk.Press (tree.pane, { row.x, 75 });
        CHECK (tree.pane.pressed.IsDoubleClick () == row.isDouble);
    }
}

TEST_CASE ("ZPane: a handler sees its parent's coordinates, and its release when it is disabled in mid-drag")
{
    Tree tree;
    ZEvent event (tree.desk.window);
    event.SetOrigin ({ 3, 4 });
    tree.pane.MouseDown (event, tree.desk.At ({ 115, 75 }));
    CHECK (tree.pane.pressed.point == ZPoint{ 15, 25 });
    CHECK (tree.desk.window.pointer == ZPoint{ 115, 75 });
    CHECK (event.GetOrigin () == ZPoint{ 3, 4 });

    CHECK (tree.desk.Drag (tree.pane, { 116, 75 }));
    tree.view.SetMouseEnabled (false);
    CHECK_FALSE (tree.desk.Drag (tree.pane, { 117, 75 }));
    CHECK (tree.pane.ups == 1);
    CHECK_FALSE (tree.desk.Press (tree.pane, { 115, 75 }));
}

TEST_CASE ("ZPane: one that ends in its own handler leaves nothing behind")
{
    struct Brief final : ZPane
    {
        using ZPane::ZPane;
        bool OnOpenModal (ZEvent&, const ZMouseInput& mouse) override { return mouse.modifiers != 0; }
        bool OnMouseDown (ZEvent&, const ZMouseInput&) override { return OnCloseModal (true); }
        bool OnCloseModal (bool) override
        {
            delete this;
            return true;
        }
    };
    Tree tree;
    auto* pane = new Brief (&tree.desk);
    tree.view.AddPane (pane);
    CHECK (tree.desk.Press (*pane, { 115, 75 }));
    pane = new Brief (&tree.desk);
    tree.view.AddPane (pane);
    CHECK (tree.desk.Press (*pane, { 115, 75 }, kShift));
    CHECK (pane->CloseModal (true));
    CHECK (tree.view.GetPaneCount () == 1);
    CHECK (tree.desk.modal == nullptr);
}

TEST_CASE ("ZView: a pass draws what is dirty and nothing else, in the coordinates of its place")
{
    Tree tree;
    CHECK (tree.Pass () == "FillRect 110,70,140,110");
    tree.pane.SetFrame ({ 10, 20, 40, 60 }); // as it is
    CHECK (tree.Pass () == "");
    tree.view.HideById (5); // another one's
    tree.view.SetActive (false);
    CHECK (tree.Pass () == "FrameRect 110,70,140,110");
    tree.pane.SetDirty (true);
    tree.view.HideById (kEveryPane);
    CHECK (tree.Pass () == "");
    tree.view.ShowById (kNewPaneId); // its own
    CHECK (tree.Pass () == "FrameRect 110,70,140,110");
    tree.pane.SetDirty (true);
    tree.pane.Hide ();
    CHECK_FALSE (tree.pane.IsDirty ());
    CHECK (tree.surface.clip.IsZero ()); // every pane gave the clip back
}

TEST_CASE ("ZView: the topmost pane is found, a disabled one and the view itself are not, panes may end in any order")
{
    Tree tree;
    ZEvent event (tree.desk.window);
    const auto found = [&] (ZPoint point) { return tree.root.FindPane (event, tree.desk.At (point)); };
    {
        ProbePane top (&tree.desk);
        top.SetFrame ({ 20, 20, 50, 60 });
        CHECK (tree.view.AddPane (&top));
        CHECK_FALSE (tree.view.AddPane (nullptr));
        CHECK_FALSE (tree.view.AddPane (&tree.view));
        CHECK (tree.root.AddPane (&top)); // leaves the first
        CHECK (found ({ 125, 75 }) == &tree.pane);
        CHECK (tree.view.AddPane (&top));
        CHECK (found ({ 125, 75 }) == &top);
        CHECK (found ({ 115, 75 }) == &tree.pane);
        top.SetMouseEnabled (false);
        CHECK (found ({ 125, 75 }) == &tree.pane);
        tree.desk.modal = &top;
    }
    CHECK (tree.desk.modal == nullptr);
    CHECK (found ({ 125, 75 }) == &tree.pane);
    tree.pane.MoveTo ({ 190, 10 });
    tree.view.FitToPanes ();
    CHECK (tree.view.GetFrame () == ZRect{ 100, 50, 320, 250 });
}

TEST_CASE ("Positions of a switch: a step is one over their number, and the range is cut into equal parts")
{
    for (const auto& [value, index] : { std::pair{ 0.249f, 0 }, { 0.25f, 1 }, { 1.0f, 3 }, { 1e30f, 3 }, { -1.0f, 0 } })
        CHECK (ValueToIndex (value, 0.25f) == index);
    for (float single : { 0.0f, -1.0f, 1.0f })
    {
        CHECK (ValueToIndex (1.0f, single) == 0);
        CHECK (IndexToValue (1, single) == 0.0f);
    }
    for (std::int32_t i = 0; i < 10; ++i)
        CHECK (ValueToIndex (IndexToValue (i, 0.1f), 0.1f) == i);
}
