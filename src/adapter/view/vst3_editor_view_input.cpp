#include "effect_wrapper.h"
#include "gui_editor.h"
#include "host_call.h"
#include "overlay_control.h"
#include "parameter_storage_base.h"
#include "truncate.h"
#include "vst3_editor_view_wrapper.h"
#include "vst_keys.h"
#include <algorithm>
#include <array>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr ZPoint kNowhere{ -1, -1 }; // no pane is there
constexpr Vst::ParamID kFirstNoParameter = 1000;

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

// The tick

void ZVst3EditorViewWrapper::OnTick ()
{
    const HostCall call;
    Stay ();
    if (window == nullptr || !IsEditorOpen ())
        return;
    ZEvent event (BeginInput ());
    auto mouse = Pointer (event);
    if (editor->GetCapturePane () != nullptr)
        Drag (event, mouse);
    else
        window->ForgetFocus ();
    editor->Idle (event, mouse);
    scaleMenu.Tick (*editor);
    Paint (mouse.time);
    FollowKeyboard ();
    if (menuWanted && !closing)
        OpenContextMenu (*std::exchange (menuWanted, std::nullopt));
}

/// No pane is under a pointer that is elsewhere, whatever lies there; and the server need not be asked for it.
ZMouseInput ZVst3EditorViewWrapper::Pointer (ZEvent& event)
{
    if (!window->IsPointerInside () && editor->GetCapturePane () == nullptr)
        return { kNowhere, 0, 0, event.GetTime () };
    return { event.GetMousePos (), event.GetButtons (), event.GetModifiers (), event.GetTime () };
}

/// While a button is held. The server knows of its release before the event comes, and what the pointer did until then
/// may be on its way, too: one tick is left to it.
void ZVst3EditorViewWrapper::Drag (ZEvent& event, ZMouseInput& mouse)
{
    if (window->HasLostFocus () || std::exchange (dragIsOver, false))
    {
        onFocus (false);
        return;
    }
    const bool expected = mouse.buttons == 0 && !releaseExpected;
    releaseExpected = mouse.buttons == 0;
    if (!expected && editor->MouseMove (event, mouse))
        brackets.RenewHeldEdits ();
}

void ZVst3EditorViewWrapper::Paint (std::uint32_t time)
{
    if (window == nullptr || !editor->NeedsRedraw ())
        return;
    editor->Draw (window->Canvas (), {}, time);
    window->ShowChanges ();
}

/// A field and a menu that are open get the keys wherever the pointer is.
void ZVst3EditorViewWrapper::FollowKeyboard ()
{
    if (window == nullptr)
        return;
    if (dynamic_cast<ZOverlayControl*> (editor->GetModalPane ()) != nullptr)
        window->TakeKeyboard ();
    else if (pressedKeys.empty ()) // the release of the key that closed it is still ours
        window->GiveKeyboardBack ();
}

// Input

ZEventImp& ZVst3EditorViewWrapper::BeginInput ()
{
    Stay ();
    auto& input = window->Input ();
    input.Begin (window->IsPointerInside ());
    return input;
}

/// A drag holds its edit whatever else comes meanwhile: the wheel, or a key that nobody takes.
void ZVst3EditorViewWrapper::EndInput (bool holding)
{
    if (!holding && editor->GetCapturePane () == nullptr)
        brackets.EndAllHeldEdits ();
    FollowKeyboard ();
}

std::int32_t ZVst3EditorViewWrapper::GetDialMode () const
{
    const auto mode = Vst::EditController::getHostKnobMode ();
    return mode == Vst::kRelativCircularMode || mode == Vst::kLinearMode ? mode : Vst::kCircularMode;
}

ZMouseInput ZVst3EditorViewWrapper::InputOf (ZEvent& event, const WindowMouse& mouse) const
{
    return { ToPanel (mouse.pixel), mouse.buttons, mouse.modifiers, event.GetTime () };
}

/// The context menu comes on the next tick: the window must be through with the press, since it holds the pointer for as
/// long, and the host may close the window from within its menu.
void ZVst3EditorViewWrapper::OnMouseDown (const WindowMouse& mouse)
{
    const HostCall call;
    if ((mouse.buttons & kRightButton) != 0 || (mouse.modifiers & kCommand) != 0)
    {
        menuWanted = window->PointerPixel ();
        if (menuWanted)
            return;
    }
    releaseExpected = false; // of a drag before this one
    ZEvent event (BeginInput ());
    editor->SetDialMode (GetDialMode ());
    EndInput (editor->MouseDown (event, InputOf (event, mouse)));
}

void ZVst3EditorViewWrapper::OnMouseMove (const WindowMouse& mouse)
{
    const HostCall call;
    ZEvent event (BeginInput ());
    EndInput (editor->MouseMove (event, InputOf (event, mouse)));
}

void ZVst3EditorViewWrapper::OnMouseUp (const WindowMouse& mouse)
{
    const HostCall call;
    ZEvent event (BeginInput ());
    editor->MouseUp (event, InputOf (event, mouse));
    EndInput (false);
}

bool ZVst3EditorViewWrapper::OnWheel (ZPoint pixel, double notches)
{
    const HostCall call;
    ZEvent event (BeginInput ());
    const bool taken = editor->MouseWheel (event, { ToPanel (pixel), Truncate (notches), event.GetTime () });
    EndInput (taken);
    return taken;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onWheel (float distance)
{
    const HostCall call;
    const auto pixel = window != nullptr ? window->PointerPixel () : std::nullopt;
    return pixel && OnWheel (*pixel, static_cast<double> (distance)) ? kResultTrue : kResultFalse;
}

// Keys

template <typename Call>
bool ZVst3EditorViewWrapper::SendKey (const NativeKey& key, Call call)
{
    bool taken = false;
    const Utf8Bytes bytes (key.character);
    for (const char byte : bytes.Get ())
    {
        ZEvent event (BeginInput ());
        taken = call (event, ZKeyInput{ byte, key.modifiers, key.key, event.GetTime () }) || taken;
    }
    return taken;
}

bool ZVst3EditorViewWrapper::OnKeyDown (const NativeKey& key)
{
    if (IsModifierOnly (key))
        return false;
    const auto pressed = std::find (pressedKeys.begin (), pressedKeys.end (), key);
    bool taken = false;
    if (pressed == pressedKeys.end ())
    {
        taken = SendKey (key, [this] (auto& event, const auto& input) { return editor->KeyDown (event, input); });
        if (taken)
            pressedKeys.push_back (key);
    }
    else
    {
        taken = SendKey (key, [this] (auto& event, const auto& input) { return editor->KeyRepeat (event, input); });
        if (!taken)
            std::erase (pressedKeys, key);
    }
    EndInput (taken);
    return taken;
}

bool ZVst3EditorViewWrapper::OnKeyUp (const NativeKey& key)
{
    if (IsModifierOnly (key))
        return false;
    const bool wasTaken = std::erase (pressedKeys, key) != 0;
    const bool taken = SendKey (key, [this] (auto& event, const auto& input) { return editor->KeyUp (event, input); });
    EndInput (false);
    return taken || wasTaken;
}

bool ZVst3EditorViewWrapper::OnKey (const NativeKey& key, bool down)
{
    const HostCall call;
    return window != nullptr && (down ? OnKeyDown (key) : OnKeyUp (key));
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onKeyDown (char16 key, int16 keyCode, int16 modifiers)
{
    return OnKey (NativeKeyOf (key, keyCode, modifiers), true) ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onKeyUp (char16 key, int16 keyCode, int16 modifiers)
{
    return OnKey (NativeKeyOf (key, keyCode, modifiers), false) ? kResultTrue : kResultFalse;
}

// Focus and values

tresult PLUGIN_API ZVst3EditorViewWrapper::onFocus (TBool state)
{
    if (window == nullptr)
        return kResultFalse;
    const HostCall call;
    Stay ();
    if (state != 0)
        editor->FocusGained ();
    else
        LeaveInput ();
    return kResultFalse;
}

/// The user works elsewhere now: a drag is over as if the button had been let go.
void ZVst3EditorViewWrapper::LeaveInput ()
{
    pressedKeys.clear ();
    if (editor->GetCapturePane () != nullptr)
    {
        ZEvent event (BeginInput ());
        editor->MouseUp (event, { kNowhere, 0, 0, event.GetTime () }); // a button there is not pressed
        dragIsOver = editor->GetCapturePane () != nullptr; // it is at work: the host tells from within an edit
    }
    editor->FocusLost ();
    brackets.EndAllHeldEdits ();
}

void ZVst3EditorViewWrapper::OnFieldMessage (const std::function<void ()>& work)
{
    const HostCall call;
    Stay ();
    work ();
}

void ZVst3EditorViewWrapper::SetParameter (std::int32_t tag, float value)
{
    const auto id = static_cast<Vst::ParamID> (tag);
    if (!closing)
        brackets.BeginHeldEdit (id);
    if (!closing) // the host may do that on hearing of the edit
        brackets.SetParameterFromEditor (id, value);
}

void ZVst3EditorViewWrapper::ShowCursor ()
{
    if (window != nullptr)
        window->Input ().ShowCursor ();
}

// Context menu

tresult PLUGIN_API ZVst3EditorViewWrapper::findParameter (int32 x, int32 y, Vst::ParamID& id)
{
    if (window == nullptr || !IsEditorOpen ())
        return kResultFalse;
    ZEvent event (BeginInput ());
    const auto point = ToPanel ({ x, y });
    const auto* const pane = editor->PaneAt (event, { point, kLeftButton, 0, event.GetTime () });
    if (pane == nullptr || !IsParameter (pane->GetId ()))
        return kResultFalse;
    id = static_cast<Vst::ParamID> (pane->GetId ());
    return kResultOk;
}

bool ZVst3EditorViewWrapper::IsParameter (std::int32_t id)
{
    ZParameterStorageBase* storage = nullptr;
    return GetInfo (kCodeStorage, &storage) && storage != nullptr && id >= 0 && id < storage->GetParameterCount ();
}

void ZVst3EditorViewWrapper::OpenContextMenu (ZPoint pixel)
{
    Vst::ParamID id = 0;
    const bool onParameter = findParameter (pixel.x, pixel.y, id) == kResultOk && id < kFirstNoParameter;
    const FUnknownPtr<Vst::IComponentHandler3> handler (controller->getComponentHandler ());
    const auto menu = owned (handler ? handler->createContextMenu (this, onParameter ? &id : nullptr) : nullptr);
    if (menu)
    {
        if (!onParameter && !scale.IsHosts ())
            scaleMenu.AddTo (*menu, scale);
        window->ReleasePointer ();
        menu->popup (pixel.x, pixel.y);
    }
    else if (!onParameter && !scale.IsHosts ())
    {
        ZEvent event (BeginInput ());
        scaleMenu.OpenOn (*editor, event, { ToPanel (pixel), kLeftButton, 0, event.GetTime () }, scale);
    }
}

} // namespace tessaly
