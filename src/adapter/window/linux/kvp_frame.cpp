#include "kvp_frame.h"

#include "vst3_control_wrapper.h"
#include "vstgui/lib/events.h"
#include "vstgui/lib/platform/linux/x11platform.h"
#include <xcb/xcb.h>

namespace tessaly
{

using namespace VSTGUI;

ZKVPFrame::ZKVPFrame (const CRect& size, VSTGUIEditorInterface* editor)
    : frame (makeOwned<CFrame> (size, editor))
{
    frame->registerMouseObserver (this);
}

ZKVPFrame::~ZKVPFrame () noexcept = default;

void ZKVPFrame::AddControl (ZVst3ControlWrapper* covering)
{
    frame->addView (covering);
    control = covering;
}

void ZKVPFrame::Close ()
{
    frame->unregisterMouseObserver (this);
    control = nullptr;
    frame->remember (); // closing drops the reference of who made the frame; ours stays
    frame->close ();
}

void ZKVPFrame::onMouseEntered (CView* /*view*/, CFrame* of)
{
    of->setCursor (kCursorDefault);
    mouseInside = true;
}

void ZKVPFrame::onMouseExited (CView* /*view*/, CFrame* /*of*/)
{
    mouseInside = false;
}

void ZKVPFrame::onMouseEvent (MouseEvent& event, CFrame* /*of*/)
{
    if (control == nullptr || event.type == EventType::MouseDown)
        return;
    const auto buttons = buttonStateFromMouseEvent (event);
    auto where = event.mousePosition;
    if (event.type == EventType::MouseMove)
        control->onMouseMoved (where, buttons);
    else if (event.type == EventType::MouseUp)
        control->onMouseUp (where, buttons);
    event.consumed = true;
    if (event.type == EventType::MouseMove)
        ForgetHistory ();
}

/// After each move VSTGUI asks for the pointer's history and never reads it: the answers would stay in memory for as long
/// as the connection. It asks as soon as this move has been handled, so its request is the next one; it can be thrown
/// away once it has been made.
void ZKVPFrame::ForgetHistory ()
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    if (historyAsked != 0)
        xcb_discard_reply (connection, historyAsked);
    historyAsked = xcb_no_operation (connection).sequence + 1;
}

} // namespace tessaly
