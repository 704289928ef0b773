#include "vst3_control_wrapper.h"

#include "event.h"
#include "gui_editor.h"
#include "vst3_editor_view_wrapper.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/events.h"
#include <algorithm>
#include <array>
#include <string_view>

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

/// No control takes such a key for itself, and pressing it must not end a drag.
bool IsModifierOnly (const NativeKey& key)
{
    return key.character == 0 && key.key == kKeyNone;
}

/// The UTF-8 bytes of a character; a zero for none.
class Utf8Bytes
{
public:
    explicit Utf8Bytes (char32_t c)
    {
        if (c < 0x80)
            Add (c);
        else if (c < 0x800)
            Add (0xC0 | c >> 6), AddTail (c);
        else if (c < 0x10000)
            Add (0xE0 | c >> 12), AddTail (c >> 6), AddTail (c);
        else
            Add (0xF0 | (c >> 18 & 7)), AddTail (c >> 12), AddTail (c >> 6), AddTail (c);
    }
    std::string_view Get () const { return { bytes.data (), count }; }

private:
    void Add (char32_t byte) { bytes[count++] = static_cast<char> (byte); }
    void AddTail (char32_t bits) { Add (0x80 | (bits & 0x3F)); }

    std::array<char, 4> bytes{};
    std::size_t count = 0;
};

} // namespace

ZVst3ControlWrapper::ZVst3ControlWrapper (const CRect& size, ZGuiEditor& shown, ZVst3EditorViewWrapper& of)
    : CControl (size)
    , editor (shown)
    , view (of)
{
    // A click with the control key is the panel's to take: VSTGUI would set this control's own value by it.
    CheckDefaultValueEventFunc = [] (CControl*, MouseDownEvent&) { return false; };
}

ZVst3ControlWrapper::ZVst3ControlWrapper (const ZVst3ControlWrapper& other)
    : CControl (other)
    , editor (other.editor)
    , view (other.view)
{
}

/// The pass that paints what is dirty has run on the tick: VSTGUI asks for a region, and shows no more than that.
void ZVst3ControlWrapper::draw (CDrawContext* context)
{
    view.Blit (*context);
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
    if (view.controlModifierClicked (this, buttons) != 0)
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    ZEvent event (view.BeginInput ());
    editor.SetDialMode (view.GetDialMode ());
    const ZMouseInput mouse{ view.ToPanel (where), ButtonsOf (buttons), ModifiersOf (buttons), event.GetTime () };
    const bool dragging = editor.MouseDown (event, mouse);
    view.EndInput (dragging);
    return dragging ? kMouseEventHandled : kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult ZVst3ControlWrapper::onMouseUp (CPoint& where, const CButtonState& buttons)
{
    ZEvent event (view.BeginInput ());
    editor.MouseUp (event, { view.ToPanel (where), ButtonsOf (buttons), ModifiersOf (buttons), event.GetTime () });
    view.EndInput (false);
    return kMouseEventHandled;
}

CMouseEventResult ZVst3ControlWrapper::onMouseMoved (CPoint& where, const CButtonState& buttons)
{
    ZEvent event (view.BeginInput ());
    const ZMouseInput mouse{ view.ToPanel (where), MovedButtonsOf (buttons), ModifiersOf (buttons), event.GetTime () };
    view.EndInput (editor.MouseMove (event, mouse));
    return kMouseEventHandled;
}

void ZVst3ControlWrapper::onMouseWheelEvent (MouseWheelEvent& wheel)
{
    if (wheel.deltaY == 0.0 && wheel.deltaX != 0.0)
        return; // sideways, which would open a ring all the same
    ZEvent event (view.BeginInput ());
    const auto delta = static_cast<std::int32_t> (wheel.deltaY);
    const bool taken = editor.MouseWheel (event, { view.ToPanel (wheel.mousePosition), delta, event.GetTime () });
    view.EndInput (taken);
    if (taken)
        wheel.consumed = true;
}

template <typename Call>
bool ZVst3ControlWrapper::SendKey (const NativeKey& key, Call call)
{
    bool taken = false;
    const Utf8Bytes bytes (key.character);
    for (const char byte : bytes.Get ())
    {
        ZEvent event (view.BeginInput ());
        taken = call (event, ZKeyInput{ byte, key.modifiers, key.key, event.GetTime () }) || taken;
    }
    return taken;
}

bool ZVst3ControlWrapper::OnKeyDown (const NativeKey& key)
{
    if (IsModifierOnly (key))
        return false;
    const auto pressed = std::find (pressedKeys.begin (), pressedKeys.end (), key);
    bool taken = false;
    if (pressed == pressedKeys.end ())
    {
        taken = SendKey (key, [this] (auto& event, const auto& input) { return editor.KeyDown (event, input); });
        if (taken)
            pressedKeys.push_back (key);
    }
    else
    {
        taken = SendKey (key, [this] (auto& event, const auto& input) { return editor.KeyRepeat (event, input); });
        if (!taken)
            std::erase (pressedKeys, key);
    }
    view.EndInput (taken);
    return taken;
}

bool ZVst3ControlWrapper::OnKeyUp (const NativeKey& key)
{
    if (IsModifierOnly (key))
        return false;
    const bool wasTaken = std::erase (pressedKeys, key) != 0;
    const bool taken = SendKey (key, [this] (auto& event, const auto& input) { return editor.KeyUp (event, input); });
    view.EndInput (false);
    return taken || wasTaken;
}

} // namespace tessaly
