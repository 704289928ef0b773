#pragma once

#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "clipboard.h"
#include "pane_desk.h"
#include "recording_canvas.h"
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

/// A desk with drawn fields and menus that hands input on as an editor does: a press goes to the modal pane if it is
/// hit, closes it if not, and may begin a capture; keys go to the modal pane; every tick reaches all panes. A character
/// is 6 pixels a byte wide.
struct OverlayDesk final : PaneDesk
{
    RecordingCanvasImp ruler;
    ZOnscreenCanvas measure{ ruler };
    FakeClipboard clipboard;
    ZView surface{ this, { 0, 0, 400, 200 } };

    OverlayDesk () { root = &surface; }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override
    {
        return std::make_unique<ZCanvasTextEditImp> (measure, &clipboard);
    }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return std::make_unique<ZCanvasMenuImp> (measure); }

    bool Down (ZPoint point, std::int32_t modifiers = 0)
    {
        ZEvent event (window);
        const auto mouse = At (point, kLeftButton, modifiers);
        auto* hit = modal != nullptr ? modal->FindPane (event, mouse) : nullptr;
        if (hit == nullptr)
            hit = surface.FindPane (event, mouse);
        if (modal != nullptr && modal != hit)
            modal->CloseModal (false);
        capture = hit != nullptr && hit->MouseDown (event, mouse) ? hit : nullptr;
        return capture != nullptr;
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
    void Tick (std::uint32_t milliseconds)
    {
        window.time += milliseconds;
        ZEvent event (window);
        surface.Idle (event, At (window.pointer, 0));
    }
    RecordingCanvasImp::Log Painted (ZPane& pane) ///< what drawing the pane takes
    {
        RecordingCanvasImp paper;
        ZOnscreenCanvas canvas (paper);
        canvas.SetOrigin (pane.GetOrigin ());
        pane.Draw (canvas, window.time);
        return paper.Take ();
    }
};

} // namespace tessaly
