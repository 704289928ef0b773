#pragma once

#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "clipboard.h"
#include "pane_fixture.h"
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace tessaly
{

struct FakeClipboard final : ZClipboard
{
    std::string held;
    std::string GetText () override { return held; }
    void SetText (std::string_view text) override { held = text; }
};

/// A fixture with one control that opens a drawn field or menu: 60 by 20 pixels in a view at (100, 50). It hands input
/// on as an editor does: a press goes to the modal pane if it is hit, closes it if not, and may begin a capture; keys
/// go to the modal pane; every tick reaches all panes. A character is 6 pixels a byte wide.
template <typename Control>
struct OverlayFixture : PaneFixture
{
    FakeClipboard clipboard;
    ZView whole{ this, { 0, 0, 400, 200 } };
    ZView view{ this, { 100, 50, 300, 150 } };
    Control control{ this, { 0, 0, 60, 20 }, 3 };

    OverlayFixture ()
    {
        Adopt (control);
        root = &whole;
        whole.AddPane (&view);
        view.AddPane (&control);
        control.SetFontActive ({}, kAlignLeft, 2, 0);
    }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override
    {
        return std::make_unique<ZCanvasTextEditImp> (canvas, &clipboard);
    }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return std::make_unique<ZCanvasMenuImp> (canvas); }
    bool IsOpen () const { return modal == &control; }

    void Down (ZPoint point, std::int32_t modifiers = 0)
    {
        const auto mouse = At (point, kLeftButton, modifiers);
        auto* hit = whole.FindPane (event, mouse);
        if (modal != nullptr && modal->FindPane (event, mouse) != nullptr)
            hit = modal;
        else if (modal != nullptr)
            modal->CloseModal (false);
        capture = hit != nullptr && hit->MouseDown (event, mouse) ? hit : nullptr;
    }
    void Move (ZPoint point, std::int32_t modifiers = 0)
    {
        if (capture != nullptr && !Drag (*capture, point, modifiers))
            capture = nullptr;
    }
    void Up (ZPoint point)
    {
        if (auto* released = std::exchange (capture, nullptr))
            Release (*released, point);
    }
    void Click (ZPoint point, std::int32_t modifiers = 0)
    {
        window.time += 1000;
        Down (point, modifiers);
        Up (point);
    }
    void DoubleClick (ZPoint point)
    {
        Click (point);
        Down (point);
        Up (point);
    }
    bool Stroke (std::int32_t key, std::int32_t modifiers = 0, char character = 0)
    {
        return modal != nullptr && Key (*modal, key, modifiers, character);
    }
    void Type (std::string_view text)
    {
        for (const char byte : text)
            Stroke (kKeyNone, 0, byte);
    }
    bool TickDirties (std::uint32_t milliseconds) ///< whether a tick so much later has the control painted
    {
        for (auto* pane : std::initializer_list<ZPane*>{ &whole, &view, &control })
            pane->SetDirty (false);
        window.time += milliseconds;
        whole.Idle (event, At (window.pointer, 0));
        return control.IsDirty ();
    }

    /// The call that draws the first text after that one; without one, a call without words.
    RecordedCall TextCall (const RecordedCall& after = "")
    {
        bool passed = after == "";
        for (const auto& call : Drawn (control))
        {
            passed = passed || call == after;
            if (passed && call.operation == "DrawText")
                return call;
        }
        return "";
    }
    std::string Text (const RecordedCall& after = "") { return TextCall (after).text; } ///< that text
};

} // namespace tessaly
