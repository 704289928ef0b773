#include "vst3_control_wrapper.h"

#include "input.h"
#include "panel_surface.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/events.h"

namespace tessaly
{

using namespace VSTGUI;

namespace
{

std::int32_t ButtonsOf (const CButtonState& state)
{
    const auto word = state.getButtonState ();
    return ((word & kLButton) != 0 ? kLeftButton : 0) | ((word & kMButton) != 0 ? kMiddleButton : 0) |
           ((word & kRButton) != 0 ? kRightButton : 0);
}

/// While the pointer moves VSTGUI's X11 window mixes up the middle and the right button.
std::int32_t MovedButtonsOf (const CButtonState& state)
{
    const auto mask = ButtonsOf (state);
    const auto swapped =
        ((mask & kMiddleButton) != 0 ? kRightButton : 0) | ((mask & kRightButton) != 0 ? kMiddleButton : 0);
    return (mask & kLeftButton) | swapped;
}

std::int32_t ModifiersOf (const CButtonState& state)
{
    const auto word = state.getModifierState ();
    return ((word & VSTGUI::kShift) != 0 ? tessaly::kShift : 0) |
           ((word & VSTGUI::kControl) != 0 ? tessaly::kControl : 0) | ((word & VSTGUI::kAlt) != 0 ? tessaly::kAlt : 0) |
           ((word & kApple) != 0 ? kCommand : 0);
}

ZPoint PixelOf (const CPoint& where)
{
    return { static_cast<std::int32_t> (where.x), static_cast<std::int32_t> (where.y) };
}

} // namespace

ZVst3ControlWrapper::ZVst3ControlWrapper (const CRect& size, EditorWindowListener& hearing)
    : CControl (size)
    , listener (&hearing)
{
    // A click with the control key is the panel's to take: VSTGUI would set this control's own value by it.
    CheckDefaultValueEventFunc = [] (CControl*, MouseDownEvent&) { return false; };
}

/// The pass that paints what is dirty has run on the tick: VSTGUI asks for a region, and shows no more than that.
void ZVst3ControlWrapper::draw (CDrawContext* context)
{
    if (surface != nullptr)
        surface->Blit (*context);
    setDirty (false);
}

/// See ZKVPFrame: nobody shall seem to have taken it.
void ZVst3ControlWrapper::onMouseDownEvent (MouseDownEvent& event)
{
    CControl::onMouseDownEvent (event);
    event.consumed.reset ();
}

CMouseEventResult ZVst3ControlWrapper::onMouseDown (CPoint& where, const CButtonState& buttons)
{
    listener->OnMouseDown ({ PixelOf (where), ButtonsOf (buttons), ModifiersOf (buttons) });
    return kMouseEventHandled;
}

CMouseEventResult ZVst3ControlWrapper::onMouseUp (CPoint& where, const CButtonState& buttons)
{
    listener->OnMouseUp ({ PixelOf (where), ButtonsOf (buttons), ModifiersOf (buttons) });
    return kMouseEventHandled;
}

CMouseEventResult ZVst3ControlWrapper::onMouseMoved (CPoint& where, const CButtonState& buttons)
{
    listener->OnMouseMove ({ PixelOf (where), MovedButtonsOf (buttons), ModifiersOf (buttons) });
    return kMouseEventHandled;
}

void ZVst3ControlWrapper::onMouseWheelEvent (MouseWheelEvent& wheel)
{
    if (wheel.deltaY == 0.0 && wheel.deltaX != 0.0)
        return; // sideways, which would open a ring all the same
    if (listener->OnWheel (PixelOf (wheel.mousePosition), wheel.deltaY))
        wheel.consumed = true;
}

} // namespace tessaly
