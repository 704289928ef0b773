#include "vst3_editor_view_wrapper.h"

#include "gui_editor.h"
#include "host_call.h"
#include "open_editor_window.h"
#include "skin_bitmaps.h"
#include <array>
#include <cmath>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

ZVst3EditorViewWrapper::ZVst3EditorViewWrapper (Vst::EditController& of, EditorController& controls,
                                                const IPtr<FUnknown>& factoryContext)
    : EditorView (&of)
    , brackets (controls)
    , fallbackContext (factoryContext)
    , scaleMenu ([this] (double factor) { ChooseScale (factor); })
{
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

ZPoint ZVst3EditorViewWrapper::ToPanel (ZPoint pixel) const
{
    return { static_cast<std::int32_t> (std::floor (pixel.x / scale.Get ())),
             static_cast<std::int32_t> (std::floor (pixel.y / scale.Get ())) };
}

/// Fits the view to the panel: its window, and what the host is told. Hosts compare that with the size
/// that the view says, and do nothing for what it has already: so it says the old one until then. Some tell the scale
/// between asking for the size and attaching: they hear of the new one when the window opens.
void ZVst3EditorViewWrapper::Resize ()
{
    if (window == nullptr)
        return;
    const auto pixels = PanelPixels ();
    ViewRect wanted (0, 0, pixels.x, pixels.y);
    window->Resize (pixels);
    if (plugFrame && !closing)
        plugFrame->resizeView (this, &wanted);
    setRect (wanted);
    if (window != nullptr)
        window->ShowAll ();
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
    if (size == nullptr)
        return kInvalidArgument;
    if (window == nullptr)
    {
        const auto pixels = PanelPixels ();
        setRect ({ 0, 0, pixels.x, pixels.y });
    }
    return EditorView::getSize (size);
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
    if (window != nullptr)
        window->Resize (pixels);
    return EditorView::onSize (&own);
}

// Opening and closing

tresult PLUGIN_API ZVst3EditorViewWrapper::isPlatformTypeSupported (FIDString type)
{
    return type != nullptr && FIDStringsEqual (type, EditorPlatformType ()) ? kResultTrue : kInvalidArgument;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::attached (void* parent, FIDString type)
{
    if (isPlatformTypeSupported (type) != kResultTrue)
        return kInvalidArgument;
    if (window != nullptr || editor == nullptr)
        return kResultFalse;
    const HostCall call;
    Stay ();
    if (OpenWindow (parent))
        Resize ();
    const tresult result = EditorView::attached (parent, type);
    if (window != nullptr && !closing)
        return result;
    Close (); // it could not be opened, or the host has closed it meanwhile
    EditorView::removed ();
    return kResultFalse;
}

tresult PLUGIN_API ZVst3EditorViewWrapper::removed ()
{
    const HostCall call;
    Stay ();
    Close ();
    return EditorView::removed ();
}

/// The view outlives the host's present call into the panel: the host may let go of it from within.
void ZVst3EditorViewWrapper::Stay ()
{
    if (!std::exchange (staying, true))
        HostCall::AtEnd ([guard = IPtr (this)] { guard->staying = false; });
}

bool ZVst3EditorViewWrapper::OpenWindow (void* parent)
{
    const std::array<FUnknown*, 3> hostObjects{ plugFrame.get (), controller->getHostContext (),
                                                fallbackContext.get () };
    window = OpenEditorWindow ({ parent, PanelPixels (), scale.Get (), hostObjects }, *this);
    if (window == nullptr)
        return false;
    brackets.AddView (*this);
    active = brackets.IsActive ();
    editor->SetMeterFade (active);
    OpenEditor ();
    return true;
}

/// The host hears the end of all edits at once, and nothing after it. What is in the window may be what this call came
/// from: it goes when that has returned.
void ZVst3EditorViewWrapper::Close ()
{
    if (window == nullptr || std::exchange (closing, true))
        return;
    brackets.EndAllHeldEdits ();
    brackets.EndAllTimedEdits (); // the host may not listen any more when their time is over
    HostCall::AtEnd ([guard = IPtr (this)] { guard->CloseWindow (); });
}

void ZVst3EditorViewWrapper::CloseWindow ()
{
    if (window == nullptr)
        return;
    brackets.RemoveView (*this);
    CloseEditor ();
    brackets.EndAllTimedEdits ();
    closing = false;
    menuWanted.reset ();
    const auto ended = std::move (window); // what its end calls back finds none
}

/// In the window, at the present scale. Without an effect there is nothing to show.
void ZVst3EditorViewWrapper::OpenEditor ()
{
    if (window == nullptr || IsEditorOpen ())
        return;
    std::int32_t width = 0;
    std::int32_t height = 0;
    editor->GetSize (width, height);
    window->MakeSurface (width, height, scale.Get ());
    if (brackets.HasEffect ())
        editor->Open ({});
    window->ShowAll ();
}

void ZVst3EditorViewWrapper::CloseEditor ()
{
    if (window == nullptr)
        return;
    brackets.EndAllHeldEdits ();
    scaleMenu.Forget ();
    if (editor != nullptr)
        editor->Close ();
    window->GiveKeyboardBack ();
    window->Input ().Reset ();
    pressedKeys.clear ();
}

void ZVst3EditorViewWrapper::Reopen ()
{
    if (window == nullptr)
        return;
    CloseEditor ();
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

// What the editor is made with

std::unique_ptr<ZBitmapImp> ZVst3EditorViewWrapper::CreateBitmap (std::string_view name)
{
    return CreateSkinBitmap (name, scale.Get ());
}

std::unique_ptr<ZMatrixMenuImp> ZVst3EditorViewWrapper::CreateMenuImp ()
{
    return window->CreateMenuImp ();
}

std::unique_ptr<ZTextEditImp> ZVst3EditorViewWrapper::CreateTextEditImp ()
{
    return window->CreateTextEditImp ();
}

} // namespace tessaly
