#pragma once

#include "native_key.h"
#include "vstgui/lib/cframe.h"
#include <cstdint>

namespace tessaly
{

class ZVst3ControlWrapper;

/// What the panel adds to the VSTGUI frame in the host's window, whose class can't be derived from. One control covers
/// the whole frame.
///
/// VSTGUI's X11 window takes the keyboard away from the host on every press that was taken, which only an open text
/// field may do. So presses look to it as if nobody had taken them, and moves and releases, which VSTGUI brings only to
/// who took the press, are handed to the control from here.
class ZKVPFrame final : private VSTGUI::IMouseObserver
{
public:
    ZKVPFrame (const VSTGUI::CRect& size, VSTGUI::VSTGUIEditorInterface* editor);
    ~ZKVPFrame () noexcept override; ///< the frame is closed by now
    ZKVPFrame (const ZKVPFrame&) = delete;
    ZKVPFrame& operator= (const ZKVPFrame&) = delete;

    VSTGUI::CFrame& Get () const { return *frame; }
    void AddControl (ZVst3ControlWrapper* covering); ///< the frame owns it
    ZVst3ControlWrapper* GetControl () const { return control; }
    void Close (); ///< with all in it
    bool IsMouseInside () const { return mouseInside; }
    void SetMouseInside (bool on)
    {
        mouseInside = on;
    } ///< VSTGUI does not notice a window that opens under the pointer

private:
    void onMouseEntered (VSTGUI::CView* view, VSTGUI::CFrame* of) override;
    void onMouseExited (VSTGUI::CView* view, VSTGUI::CFrame* of) override;
    void onMouseEvent (VSTGUI::MouseEvent& event, VSTGUI::CFrame* of) override;
    void ForgetHistory ();

    VSTGUI::SharedPointer<VSTGUI::CFrame> frame;
    ZVst3ControlWrapper* control = nullptr; // not owned: the frame; null when it has closed
    bool mouseInside = false;
    std::uint32_t historyAsked = 0; // the request for the pointer's history whose answer nobody reads; 0: none
};

} // namespace tessaly
