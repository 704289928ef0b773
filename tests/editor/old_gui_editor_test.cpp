#include "old_gui_editor.h"

#include "editor_fixture.h"
#include "old_hover_gui_editor.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// Two pages with a control each.
struct PlainFixture : EditorFixture<ZOldGuiEditor>
{
    ProbeControl* frontControl = nullptr; // not owned, as below: the editor's panes
    ProbeControl* backControl = nullptr;

    void CreateControls () override
    {
        SetBackBackground ("back");
        SetFrontBackground ("front");
        frontControl = AddProbe (GetFrontLayer (), { 0, 0, 20, 20 }, 0);
        backControl = AddProbe (GetBackLayer (), { 20, 0, 40, 20 }, 1);
    }
};

/// Two pages, and on the front one a control in each layer and a text for the lower one.
struct HoverFixture : EditorFixture<ZOldHoverGuiEditor>
{
    ProbeControl* upperControl = nullptr; // not owned: the editor's pane

    void CreateControls () override
    {
        SetFrontBackground ("front");
        SetBackBackground ("back");
        AddProbe (GetFrontLayer (), { 0, 0, 20, 20 }, 0);
        upperControl = AddProbe (GetFrontUpperLayer (), { 40, 0, 60, 20 }, 2);
        AddFrontText (std::make_unique<ProbeControl> (this, ZRect{ 60, 0, 80, 20 }, 0, log));
    }
};

} // namespace

TEST_CASE_FIXTURE (PlainFixture, "ZOldGuiEditor: shows one of two pages in the size of their images")
{
    Open ({});
    CHECK (Paint () == Calls{ "CreateOffscreen 0,0,200,100", "> DrawBitmap front 0,0,200,100 from 0,0",
                              "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });
    CHECK_FALSE (NeedsRedraw ());
    frontControl->SetDirty (true);
    CHECK (Paint () == Calls{ "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });

    SetFrontBackground ("other"); // another image only; what stands on it is drawn again
    CHECK (Paint () == Calls{ "> DrawBitmap other 0,0,200,100 from 0,0", "> FillRect 0,0,20,20",
                              "CopyCanvas 0,0,200,100 from 0,0" });
    ShowBack ();
    CHECK (NeedsRedraw ());
    CHECK (Paint ()[1] == "> DrawBitmap back 0,0,200,100 from 0,0");
    CHECK (Press ({ 25, 5 }));
    CHECK (GetCapturePane () == backControl);
    ShowFront ();
    CHECK_FALSE (Press ({ 25, 5 }));

    SetSize (300, 150);
    CHECK (GetFrontView ()->GetFrame () == ZRect{ 0, 0, 300, 150 });
    CHECK (Paint ()[1] == "> DrawBitmap other 0,0,300,150 from 0,0");
    Close ();
    SetFrontBackground ("front"); // closed: nothing
    Open ({});
    ZPoint size;
    GetSize (size.x, size.y);
    CHECK (size == ZPoint{ 200, 100 });
}

TEST_CASE_FIXTURE (HoverFixture, "ZOldHoverGuiEditor: the upper layer moves over an unpainted lower, and texts follow")
{
    Open ({});
    const auto first = Paint ();
    CHECK (first.size () == 5); // a layer, background, two controls, a copy
    upperControl->SetDirty (true);
    CHECK (NeedsRedraw ());
    const Calls upper{ "CopyCanvas 0,0,200,100 from 0,0", "FillRect 40,0,60,20" };
    CHECK (Paint () == upper);
    GetFrontView ()->SetDirty (true);
    CHECK (Paint ().size () == first.size () - 1);

    Hover ({ 5, 5 });
    Tick ();
    CHECK (NeedsRedraw ());
    CHECK (Paint ().size () == 3); // with the text
    Hover ({ 150, 50 });
    Tick ();
    CHECK (NeedsRedraw ()); // so that the text goes
    CHECK (Paint () == upper);
    CHECK_FALSE (NeedsRedraw ());
    surface.scale = 2.0; // new pixels for both layers
    CHECK (Paint ().size () == first.size ());
    CHECK (Press ({ 45, 5 }));
    CHECK (GetCapturePane () == upperControl);
}

TEST_CASE_FIXTURE (HoverFixture, "ZOldHoverGuiEditor: keeps a layer's pixels only while something floats")
{
    Open ({});
    Paint ();
    upperControl->Hide ();
    GetControls ().At (0)->SetDirty (true);
    CHECK (Paint () == Calls{ "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" }); // what it covered
    GetControls ().At (0)->SetDirty (true);
    CHECK (Paint () == Calls{ "FillRect 0,0,20,20" });
    upperControl->Show ();
    CHECK (Paint ().size () == 5);
}
