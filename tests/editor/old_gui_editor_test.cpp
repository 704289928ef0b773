#include "old_gui_editor.h"

#include "bitmap_picture.h"
#include "editor_desk.h"
#include "old_hover_gui_editor.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

using Calls = RecordingCanvasImp::Log;

/// Two pages with a control each; with hover views one more in the upper layer, and a text for the lower one.
template <typename Base>
class PagedEditor final : public Base
{
public:
    using Base::Base;
    ~PagedEditor () override { this->Close (); }

    ProbeControl* frontControl = nullptr; // not owned, as the others: the editor's panes
    ProbeControl* backControl = nullptr;
    ProbeControl* upperControl = nullptr;
    ProbeControl* text = nullptr;
    bool backFirst = false; // of the pages that are made

    std::unique_ptr<ProbeControl> Probe (std::int32_t left, std::int32_t tag)
    {
        return std::make_unique<ProbeControl> (this, ZRect{ left, 0, left + 20, 20 }, tag);
    }

protected:
    void CreateControls () override
    {
        if (!backFirst)
            this->SetFrontBackground ("front");
        this->SetBackBackground ("back");
        if (backFirst)
            this->SetFrontBackground ("front");
        frontControl = this->AddControl (this->GetFrontLayer (), Probe (0, 0));
        backControl = this->AddControl (this->GetBackLayer (), Probe (20, 1));
        if constexpr (std::is_same_v<Base, ZOldHoverGuiEditor>)
        {
            upperControl = this->AddControl (this->GetFrontUpperLayer (), Probe (40, 2));
            text = this->AddFrontText (Probe (60, 0));
        }
    }
    void DestroyControls () override { frontControl = backControl = upperControl = text = nullptr; }
    void OnFocusGained () override {}
    void OnFocusLost () override {}
};

using PlainPages = PagedEditor<ZOldGuiEditor>;
using HoverPages = PagedEditor<ZOldHoverGuiEditor>;

} // namespace

TEST_CASE ("ZOldGuiEditor: shows one of two pages in the size of their images")
{
    EditorDesk desk;
    PlainPages editor (desk.wrapper);
    editor.Open ({});
    std::int32_t width = 0;
    std::int32_t height = 0;
    editor.GetSize (width, height);
    CHECK (ZPoint{ width, height } == ZPoint{ 200, 100 });
    CHECK (desk.Paint (editor) == Calls{ "CreateOffscreen 0,0,200,100", "> DrawBitmap front 0,0,200,100 from 0,0",
                                         "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });
    CHECK_FALSE (editor.NeedsRedraw ());
    editor.frontControl->SetDirty (true);
    CHECK (desk.Paint (editor) == Calls{ "> FillRect 0,0,20,20", "CopyCanvas 0,0,200,100 from 0,0" });

    editor.SetFrontBackground ("other"); // another image only; what stands on it is drawn again
    CHECK (desk.Paint (editor) == Calls{ "> DrawBitmap other 0,0,200,100 from 0,0", "> FillRect 0,0,20,20",
                                         "CopyCanvas 0,0,200,100 from 0,0" });
    editor.ShowBack ();
    CHECK (editor.NeedsRedraw ());
    CHECK (desk.Paint (editor)[1] == "> DrawBitmap back 0,0,200,100 from 0,0");
    CHECK (desk.Press (editor, { 25, 5 }));
    CHECK (editor.GetCapturePane () == editor.backControl);
    editor.ShowFront ();
    CHECK_FALSE (desk.Press (editor, { 25, 5 }));

    editor.SetSize (300, 150);
    CHECK (editor.GetFrontView ()->GetFrame () == ZRect{ 0, 0, 300, 150 });
    CHECK (desk.Paint (editor)[1] == "> DrawBitmap other 0,0,300,150 from 0,0");
    editor.Close ();
    CHECK (editor.GetFrontView () == nullptr);
    editor.SetFrontBackground ("front"); // closed: nothing
    editor.backFirst = true;
    editor.Open ({});
    CHECK (editor.GetFrontView ()->IsVisible ());
    CHECK_FALSE (editor.GetBackView ()->IsVisible ());
}

TEST_CASE (
    "ZOldHoverGuiEditor: what moves in the upper layer does not repaint the lower, and a text follows the pointer")
{
    EditorDesk desk;
    HoverPages editor (desk.wrapper);
    editor.Open ({});
    const auto first = desk.Paint (editor);
    CHECK (first.size () == 7); // two layers, background, two controls, two copies
    editor.upperControl->SetDirty (true);
    CHECK (editor.NeedsRedraw ());
    const Calls upper{ "> CopyCanvas 0,0,200,100 from 0,0", "> FillRect 40,0,60,20",
                       "CopyCanvas 0,0,200,100 from 0,0" };
    CHECK (desk.Paint (editor) == upper);
    editor.GetFrontView ()->SetDirty (true);
    CHECK (desk.Paint (editor).size () == first.size () - 2);

    desk.window.pointer = { 5, 5 };
    desk.Tick (editor);
    desk.Tick (editor);
    CHECK (editor.text->IsVisible ());
    CHECK (editor.NeedsRedraw ());
    CHECK (desk.Paint (editor).size () == 4);
    desk.window.pointer = { 150, 50 };
    desk.Tick (editor);
    desk.Tick (editor);
    CHECK_FALSE (editor.text->IsVisible ());
    CHECK (editor.NeedsRedraw ()); // so that the text goes
    CHECK (desk.Paint (editor) == upper);
    CHECK_FALSE (editor.NeedsRedraw ());
}
