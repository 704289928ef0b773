#include "vst3_editor_view_wrapper.h"

#include "cairo_bitmap_imp.h"
#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "effect_wrapper.h"
#include "gui_editor.h"
#include "host_call.h"
#include "overlay_control.h"
#include "parameter_storage_base.h"
#include "skin_bitmaps.h"
#include "vst3_control_wrapper.h"
#include "vst_keys.h"
#include "vstgui/lib/events.h"
#include <cmath>
#include <cstring>
#include <string>

namespace tessaly
{

using namespace Steinberg;
using VSTGUI::CPoint;
using VSTGUI::CRect;

namespace
{

constexpr int32 kTickMs = 30;
constexpr ZPoint kNowhere{ -1, -1 }; // no pane is there
constexpr Vst::ParamID kFirstNoParameter = 1000;

} // namespace

ZVst3EditorViewWrapper::ZVst3EditorViewWrapper (Vst::EditController& of, EditorController& controls,
                                                const IPtr<FUnknown>& factoryContext)
    : VSTGUIEditor (&of)
    , brackets (controls)
    , fallbackContext (factoryContext)
    , scaleMenu ([this] (double factor) { ChooseScale (factor); })
{
    setIdleRate (kTickMs);
}

ZVst3EditorViewWrapper::~ZVst3EditorViewWrapper ()
{
    staying = true; // nothing may count it any more
    CloseWindow (); // the host has let go of a view that it had attached
    SetEditor (nullptr);
}

void ZVst3EditorViewWrapper::SetEditor (std::unique_ptr<ZGuiEditor> newEditor)
{
    if (editor != nullptr)
        brackets.DisconnectEditor (*editor);
    editor = std::move (newEditor);
    if (editor == nullptr)
        return;
    Resize ();
    brackets.ConnectEditor (*editor);
}

void ZVst3EditorViewWrapper::SetActive (bool state)
{
    if (std::exchange (active, state) != state && IsEditorOpen ())
        editor->SetMeterFade (state);
}

// Size and scale

/// Of the whole panel, at the present scale.
ZPoint ZVst3EditorViewWrapper::PanelPixels () const
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (editor != nullptr)
        editor->GetSize (width, height);
    return { static_cast<std::int32_t> (std::lround (width * scale.Get ())),
             static_cast<std::int32_t> (std::lround (height * scale.Get ())) };
}

ZPoint ZVst3EditorViewWrapper::ToPanel (const CPoint& where) const
{
    return { static_cast<std::int32_t> (std::floor (where.x / scale.Get ())),
             static_cast<std::int32_t> (std::floor (where.y / scale.Get ())) };
}

/// Fits the view to the panel: the frame, the control in it, and what the host is told. Hosts compare that with the size
/// that the view says, and do nothing for what it has already: so it says the old one until then.
void ZVst3EditorViewWrapper::Resize ()
{
    const auto pixels = PanelPixels ();
    ViewRect wanted (0, 0, pixels.x, pixels.y);
    if (frame != nullptr)
    {
        const CRect size (0, 0, pixels.x, pixels.y);
        control->SetViewSize (size);
        frame->setSize (size.getWidth (), size.getHeight ());
        frame->setMouseableArea (size);
        if (plugFrame && !closing)
            plugFrame->resizeView (this, &wanted);
    }
    setRect (wanted);
    if (frame != nullptr)
        frame->invalid ();
}

void ZVst3EditorViewWrapper::ResizeTo (std::int32_t /*width*/, std::int32_t /*height*/)
{
    ApplyScale (); // the editor has its new size already
}

void ZVst3EditorViewWrapper::ApplyScale ()
{
    const HostCall call;
    HostCall::AtEnd (
        [guard = IPtr (this)]
        {
            const HostCall resizing; // the host may close the window in answer
            guard->Stay ();
            guard->Reopen ();
            guard->Resize ();
        });
}

tresult PLUGIN_API ZVst3EditorViewWrapper::setContentScaleFactor (ScaleFactor factor)
{
    if (scale.Tell (static_cast<double> (factor)))
        ApplyScale ();
    return kResultTrue;
}

void ZVst3EditorViewWrapper::ChooseScale (double factor)
{
    if (scale.Choose (factor))
        ApplyScale ();
}

tresult PLUGIN_API ZVst3EditorViewWrapper::getSize (ViewRect* size)
{
    return size != nullptr ? VSTGUIEditor::getSize (size) : kInvalidArgument;
}

/// The panel has the one size that it says. Hosts that give another, which some do whatever a view says, cut it off or
/// leave a border.
tresult PLUGIN_API ZVst3EditorViewWrapper::onSize (ViewRect* newSize)
{
    if (newSize == nullptr)
        return kInvalidArgument;
    const HostCall call;
    const auto pixels = PanelPixels ();
    ViewRect own (0, 0, pixels.x, pixels.y);
    return VSTGUIEditor::onSize (&own);
}

// Opening and closing

/// Hosts offer their run loop with the frame or with the context; some in one of them only.
IPtr<Linux::IRunLoop> ZVst3EditorViewWrapper::FindRunLoop () const
{
    for (FUnknown* source :
         { static_cast<FUnknown*> (plugFrame.get ()), controller->getHostContext (), fallbackContext.get () })
        if (FUnknownPtr<Linux::IRunLoop> loop (source); loop)
            return loop;
    return nullptr;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::attached (void* parent, FIDString type)
{
    if (type == nullptr || isPlatformTypeSupported (type) != kResultTrue)
        return kInvalidArgument;
    if (frame != nullptr || editor == nullptr)
        return kResultFalse;
    const HostCall call;
    Stay ();
    const tresult result = VSTGUIEditor::attached (parent, type);
    if (frame != nullptr && !closing)
        return result;
    VSTGUIEditor::removed (); // it could not be opened, or the host has closed it meanwhile
    return kResultFalse;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::removed ()
{
    const HostCall call;
    Stay ();
    return VSTGUIEditor::removed ();
}

/// The view outlives the host's present call into the panel: the host may let go of it from within.
void ZVst3EditorViewWrapper::Stay ()
{
    if (!std::exchange (staying, true))
        HostCall::AtEnd ([guard = IPtr (this)] { guard->staying = false; });
}

bool PLUGIN_API ZVst3EditorViewWrapper::open (void* parent, const VSTGUI::PlatformType& /*type*/)
{
    if (frame != nullptr)
        return false;
    const auto pixels = PanelPixels ();
    const CRect size (0, 0, pixels.x, pixels.y);
    panelFrame = std::make_unique<ZKVPFrame> (size, this);
    control = new ZVst3ControlWrapper (size, *editor, *this); // counted by VSTGUI: the frame ends it
    panelFrame->AddControl (control);
    surface = std::make_unique<PanelSurface> (1, 1, 1.0);
    window = PanelWindow::Open (*panelFrame, parent, FindRunLoop (), scale.Get (), *this);
    if (window == nullptr)
    {
        control = nullptr;
        panelFrame.reset ();
        surface.reset ();
        return false;
    }
    frame = &panelFrame->Get ();
    frame->setMouseEnabled (true);
    brackets.AddView (*this);
    active = brackets.IsActive ();
    editor->SetMeterFade (active);
    OpenEditor ();
    if (PanelPixels () != pixels)
        Resize ();
    return true;
}

/// The host hears the end of all edits at once, and nothing after it. What is in the window may be what this call came
/// from: it goes when that has returned.
void PLUGIN_API ZVst3EditorViewWrapper::close ()
{
    if (frame == nullptr || std::exchange (closing, true))
        return;
    brackets.EndAllHeldEdits ();
    brackets.EndAllTimedEdits (); // the host may not listen any more when their time is over
    HostCall::AtEnd ([guard = IPtr (this)] { guard->CloseWindow (); });
}

void ZVst3EditorViewWrapper::CloseWindow ()
{
    if (frame == nullptr)
        return;
    brackets.RemoveView (*this);
    CloseEditor ();
    brackets.EndAllTimedEdits ();
    closing = false;
    menuWanted.reset ();
    frame = nullptr; // what the end of the window calls back finds none
    control = nullptr;
    window.reset ();
    panelFrame.reset ();
    surface.reset ();
}

/// In the window, at the present scale. Without an effect there is nothing to show.
void ZVst3EditorViewWrapper::OpenEditor ()
{
    if (frame == nullptr || IsEditorOpen ())
        return;
    std::int32_t width = 0;
    std::int32_t height = 0;
    editor->GetSize (width, height);
    surface = std::make_unique<PanelSurface> (width, height, scale.Get ());
    if (brackets.HasEffect ())
        editor->Open ({});
    frame->invalid ();
}

void ZVst3EditorViewWrapper::CloseEditor ()
{
    if (frame == nullptr)
        return;
    brackets.EndAllHeldEdits ();
    scaleMenu.Forget ();
    if (editor != nullptr)
        editor->Close ();
    window->Window ().GiveKeyboardBack ();
    window->Input ().Reset ();
    control->ForgetKeys ();
}

void ZVst3EditorViewWrapper::Reopen ()
{
    if (window == nullptr)
        return;
    CloseEditor ();
    window->Input ().SetScale (scale.Get ());
    OpenEditor ();
}

void ZVst3EditorViewWrapper::OnEffectGone ()
{
    if (!HostCall::IsInside ())
        return CloseEditor ();
    HostCall::AtEnd ([guard = IPtr (this)] { guard->Reopen (); });
}

bool ZVst3EditorViewWrapper::IsEditorOpen () const
{
    return editor != nullptr && editor->IsOpen ();
}

// The tick

VSTGUI::CMessageResult ZVst3EditorViewWrapper::notify (VSTGUI::CBaseObject* sender, const char* message)
{
    if (std::strcmp (message, VSTGUI::CVSTGUITimer::kMsgTimer) != 0)
        return VSTGUIEditor::notify (sender, message);
    Stay ();
    Tick ();
    return VSTGUIEditor::notify (sender, message);
}

void ZVst3EditorViewWrapper::Tick ()
{
    if (window == nullptr)
        return;
    window->Window ().Dispatch (); // what came in while a paste waited
    if (!IsEditorOpen ())
        return;
    ZEvent event (BeginInput ());
    auto mouse = Pointer (event);
    if (editor->GetCapturePane () != nullptr)
        Drag (event, mouse);
    else
        window->Window ().ForgetFocus ();
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
    if (!panelFrame->IsMouseInside () && editor->GetCapturePane () == nullptr)
        return { kNowhere, 0, 0, event.GetTime () };
    return { event.GetMousePos (), event.GetButtons (), event.GetModifiers (), event.GetTime () };
}

/// While a button is held. The server knows of its release before the event comes, and what the pointer did until then
/// may be on its way, too: one tick is left to it.
void ZVst3EditorViewWrapper::Drag (ZEvent& event, ZMouseInput& mouse)
{
    if (window->Window ().HasLostFocus () || std::exchange (dragIsOver, false))
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
    if (frame == nullptr || !editor->NeedsRedraw ())
        return;
    editor->Draw (surface->Canvas (), {}, time);
    const auto changes = surface->TakeChanges ();
    for (const auto& pixels : changes.Rects ())
        control->invalidRect (CRect (pixels.left, pixels.top, pixels.right, pixels.bottom));
}

/// A field and a menu that are open get the keys wherever the pointer is.
void ZVst3EditorViewWrapper::FollowKeyboard ()
{
    if (window == nullptr)
        return;
    if (dynamic_cast<ZOverlayControl*> (editor->GetModalPane ()) != nullptr)
        window->Window ().TakeKeyboard ();
    else if (!control->HasPressedKeys ()) // the release of the key that closed it is still ours
        window->Window ().GiveKeyboardBack ();
}

// Input

ZEventImp& ZVst3EditorViewWrapper::BeginInput ()
{
    Stay ();
    auto& input = window->Input ();
    input.Begin (panelFrame->IsMouseInside ());
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

tresult PLUGIN_API ZVst3EditorViewWrapper::onWheel (float distance)
{
    const HostCall call;
    const auto where = frame != nullptr ? window->PointerPlace () : std::nullopt;
    if (!where)
        return kResultFalse;
    VSTGUI::MouseWheelEvent wheel;
    wheel.mousePosition = *where;
    wheel.deltaY = static_cast<double> (distance);
    frame->dispatchEvent (wheel);
    return wheel.consumed ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onKeyDown (char16 key, int16 keyCode, int16 modifiers)
{
    const HostCall call;
    const auto taken = frame != nullptr && control->OnKeyDown (NativeKeyOf (key, keyCode, modifiers));
    return taken ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onKeyUp (char16 key, int16 keyCode, int16 modifiers)
{
    const HostCall call;
    const auto taken = frame != nullptr && control->OnKeyUp (NativeKeyOf (key, keyCode, modifiers));
    return taken ? kResultTrue : kResultFalse;
}

bool ZVst3EditorViewWrapper::OnKey (const NativeKey& key, bool down)
{
    return frame != nullptr && (down ? control->OnKeyDown (key) : control->OnKeyUp (key));
}

void ZVst3EditorViewWrapper::OnKeyboardLost ()
{
    onFocus (false);
}

void ZVst3EditorViewWrapper::OnPointer (bool inside)
{
    if (panelFrame != nullptr)
        panelFrame->SetMouseInside (inside);
}

tresult PLUGIN_API ZVst3EditorViewWrapper::onFocus (TBool state)
{
    if (frame == nullptr)
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
    control->ForgetKeys ();
    if (editor->GetCapturePane () != nullptr)
    {
        ZEvent event (BeginInput ());
        editor->MouseUp (event, { kNowhere, 0, 0, event.GetTime () }); // a button there is not pressed
        dragIsOver = editor->GetCapturePane () != nullptr; // it is at work: the host tells from within an edit
    }
    editor->FocusLost ();
    brackets.EndAllHeldEdits ();
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
    if (frame == nullptr || !IsEditorOpen ())
        return kResultFalse;
    ZEvent event (BeginInput ());
    const auto point = ToPanel ({ static_cast<double> (x), static_cast<double> (y) });
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

/// The menu comes on the next tick: VSTGUI must be through with the press, since it holds the pointer for as long, and
/// the host may close the window from within its menu.
std::int32_t ZVst3EditorViewWrapper::controlModifierClicked (VSTGUI::CControl* /*control*/,
                                                             VSTGUI::CButtonState buttons)
{
    if ((buttons.getButtonState () & VSTGUI::kRButton) == 0 && (buttons.getModifierState () & VSTGUI::kApple) == 0)
        return 0;
    if (frame == nullptr)
        return 0;
    menuWanted = window->PointerPlace ();
    return menuWanted ? 1 : 0;
}

void ZVst3EditorViewWrapper::OpenContextMenu (CPoint where)
{
    const auto x = static_cast<int32> (where.x);
    const auto y = static_cast<int32> (where.y);
    Vst::ParamID id = 0;
    const bool onParameter = findParameter (x, y, id) == kResultOk && id < kFirstNoParameter;
    const FUnknownPtr<Vst::IComponentHandler3> handler (controller->getComponentHandler ());
    const auto menu = owned (handler ? handler->createContextMenu (this, onParameter ? &id : nullptr) : nullptr);
    if (menu)
    {
        if (!onParameter && !scale.IsHosts ())
            scaleMenu.AddTo (*menu, scale);
        window->ReleaseGrab ();
        menu->popup (x, y);
    }
    else if (!onParameter && !scale.IsHosts ())
    {
        ZEvent event (BeginInput ());
        scaleMenu.OpenOn (*editor, event, { ToPanel (where), kLeftButton, 0, event.GetTime () }, scale);
    }
}

// What the editor is made with

std::unique_ptr<ZBitmapImp> ZVst3EditorViewWrapper::CreateBitmap (std::string_view name)
{
    return CreateSkinBitmap (name, scale.Get ());
}

std::unique_ptr<ZMatrixMenuImp> ZVst3EditorViewWrapper::CreateMenuImp ()
{
    return std::make_unique<ZCanvasMenuImp> (surface->Canvas ());
}

std::unique_ptr<ZTextEditImp> ZVst3EditorViewWrapper::CreateTextEditImp ()
{
    return std::make_unique<ZCanvasTextEditImp> (surface->Canvas (), &window->Clipboard ());
}

} // namespace tessaly
