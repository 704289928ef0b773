#include "old_gui_editor.h"

#include "editor_desk.h"
#include "old_hover_gui_editor.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// Two pages with a control each.
struct PlainDesk : EditorDesk<ZOldGuiEditor>
{
    ProbeControl* frontControl = nullptr; // not owned, as below: the editor's panes
    ProbeControl* backControl = nullptr;

    void CreateControls () override
    {
        editor.SetBackBackground ("back");
        editor.SetFrontBackground ("front");
        frontControl = AddProbe (editor.GetFrontLayer (), { 0, 0, 20, 20 }, 0);
        backControl = AddProbe (editor.GetBackLayer (), { 20, 0, 40, 20 }, 1);
    }
};

/// Two pages, and on the front one a control in each layer and a text for the lower one.
struct HoverDesk : EditorDesk<ZOldHoverGuiEditor>
{
    ProbeControl* upperControl = nullptr; // not owned: the editor's pane

    void CreateControls () override
    {
        editor.SetFrontBackground ("front");
        editor.SetBackBackground ("back");
        AddProbe (editor.GetFrontLayer (), { 0, 0, 20, 20 }, 0);
        upperControl = AddProbe (editor.GetFrontUpperLayer (), { 40, 0, 60, 20 }, 2);
        editor.AddFrontText (std::make_unique<ProbeControl> (&editor, ZRect{ 60, 0, 80, 20 }, 0, log));
    }
};

} // namespace

TEST_CASE_FIXTURE (PlainDesk, "ZOldGuiEditor: shows one of two pages in the size of their images")
{
    editor.Open ({});
    CHECK (Paint () == Words_t{ "CreateOffscreen 0,0,200,100", "> DrawBitmap front 0,0,200,100 from 0,0",
                                "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });
    CHECK_FALSE (editor.NeedsRedraw ());
    frontControl->SetDirty (true);
    CHECK (Paint () == Words_t{ "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });

    editor.SetFrontBackground ("other"); // another image only; what stands on it is drawn again
    CHECK (Paint () == Words_t{ "> DrawBitmap other 0,0,200,100 from 0,0", "> FillRect 0,0,20,20",
                                "CopyCanvas 0,0,200,100 from 0,0" });
    editor.ShowBack ();
    CHECK (editor.NeedsRedraw ());
    CHECK (Paint ()[1] == "> DrawBitmap back 0,0,200,100 from 0,0");
    CHECK (Press ({ 25, 5 }));
    CHECK (editor.GetCapturePane () == backControl);
    editor.ShowFront ();
    CHECK_FALSE (Press ({ 25, 5 }));

    editor.SetSize (300, 150);
    CHECK (editor.GetFrontView ()->GetFrame () == ZRect{ 0, 0, 300, 150 });
    CHECK (Paint ()[1] == "> DrawBitmap other 0,0,300,150 from 0,0");
    editor.Close ();
    editor.SetFrontBackground ("front"); // closed: nothing
    editor.Open ({});
    std::int32_t width = 0;
    std::int32_t height = 0;
    editor.GetSize (width, height);
    CHECK (ZPoint{ width, height } == ZPoint{ 200, 100 });
}

TEST_CASE_FIXTURE (HoverDesk, "ZOldHoverGuiEditor: the upper layer moves over an unpainted lower, and texts follow")
{
    editor.Open ({});
    const auto first = Paint ();
    CHECK (first.size () == 7); // two layers, background, two controls, two copies
    upperControl->SetDirty (true);
    CHECK (editor.NeedsRedraw ());
    const Words_t upper{ "> CopyCanvas 0,0,200,100 from 0,0", "> FillRect 40,0,60,20",
                         "CopyCanvas 0,0,200,100 from 0,0" };
    CHECK (Paint () == upper);
    editor.GetFrontView ()->SetDirty (true);
    CHECK (Paint ().size () == first.size () - 2);

    Hover ({ 5, 5 });
    Tick ();
    CHECK (editor.NeedsRedraw ());
    CHECK (Paint ().size () == 4); // with the text
    Hover ({ 150, 50 });
    Tick ();
    CHECK (editor.NeedsRedraw ()); // so that the text goes
    CHECK (Paint () == upper);
    CHECK_FALSE (editor.NeedsRedraw ());
    surface.scale = 2.0; // new pixels for both layers
    CHECK (Paint ().size () == first.size ());
    CHECK (Press ({ 45, 5 }));
    CHECK (editor.GetCapturePane () == upperControl);
}
