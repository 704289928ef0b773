#pragma once

#include "editor_controller.h"
#include "editor_window.h"
#include "editor_wrapper.h"
#include "event.h"
#include "geometry.h"
#include "panel_scale.h"
#include "pluginterfaces/gui/iplugviewcontentscalesupport.h"
#include "pluginterfaces/vst/ivstplugview.h"
#include "public.sdk/source/vst/vsteditcontroller.h"
#include "scale_menu.h"
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tessaly
{

class ZGuiEditor;

/// The editor in the host's window: the view that the host sees, and the surroundings that the editor sees.
///
/// The panel is drawn at PanelScale into a surface that keeps its pixels; on each tick a pass paints what has changed
/// there, and the window shows that part of it. When the scale changes, or the effect goes or comes while the window is
/// open, the editor closes and opens again in it. A host may close the window, let go of the view, or change the scale
/// from within any call that the panel makes to it: what is on the stack then ends with the outermost HostCall.
///
/// Host's user-interface thread.
class ZVst3EditorViewWrapper final : public Steinberg::Vst::EditorView,
                                     public Steinberg::Vst::IParameterFinder,
                                     public Steinberg::IPlugViewContentScaleSupport,
                                     public ZEditorWrapper,
                                     public EditorViewListener,
                                     private EditorWindowListener
{
public:
    /// @param of              counted: lives for as long as this
    /// @param controls        the same object, as views see it
    /// @param factoryContext  the host context of the class factory, or null
    ZVst3EditorViewWrapper (Steinberg::Vst::EditController& of, EditorController& controls,
                            const Steinberg::IPtr<Steinberg::FUnknown>& factoryContext);
    ~ZVst3EditorViewWrapper () override;

    void SetEditor (std::unique_ptr<ZGuiEditor> newEditor); ///< null ends the present one
    ZGuiEditor* GetEditor () const { return editor.get (); }

    // EditorViewListener
    void SetActive (bool state) override; ///< meters sink while the processor is off
    void OnEffectGone () override;
    void OnEffectCame () override { OpenEditor (); }

    void ChooseScale (double factor); ///< by the user

    // IPlugView
    Steinberg::tresult PLUGIN_API isPlatformTypeSupported (Steinberg::FIDString type) override;
    Steinberg::tresult PLUGIN_API attached (void* parent, Steinberg::FIDString type) override;
    Steinberg::tresult PLUGIN_API removed () override;
    Steinberg::tresult PLUGIN_API onWheel (float distance) override;
    Steinberg::tresult PLUGIN_API onKeyDown (Steinberg::char16 key, Steinberg::int16 keyCode,
                                             Steinberg::int16 modifiers) override;
    Steinberg::tresult PLUGIN_API onKeyUp (Steinberg::char16 key, Steinberg::int16 keyCode,
                                           Steinberg::int16 modifiers) override;
    Steinberg::tresult PLUGIN_API getSize (Steinberg::ViewRect* size) override;
    Steinberg::tresult PLUGIN_API onSize (Steinberg::ViewRect* newSize) override;
    Steinberg::tresult PLUGIN_API onFocus (Steinberg::TBool state) override;

    // IParameterFinder
    Steinberg::tresult PLUGIN_API findParameter (Steinberg::int32 x, Steinberg::int32 y,
                                                 Steinberg::Vst::ParamID& id) override;

    // IPlugViewContentScaleSupport
    Steinberg::tresult PLUGIN_API setContentScaleFactor (ScaleFactor factor) override;

    // ZEditorWrapper
    bool QueryEffect (std::int32_t kind, void* out) override { return brackets.QueryEffect (kind, out); }
    bool GetInfo (std::int32_t kind, void* out) override { return brackets.GetInfo (kind, out); }
    void SetParameter (std::int32_t tag, float value) override;
    void EndEdit (std::int32_t tag) override { brackets.SyncParameter (tag); }
    void ShowCursor () override;
    void ResizeTo (std::int32_t width, std::int32_t height) override;
    std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) override;
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override;
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override;
    std::unique_ptr<ZTooltipImp> CreateTooltipImp () override { return nullptr; } // the panel has none

    OBJ_METHODS (ZVst3EditorViewWrapper, Steinberg::Vst::EditorView)
    DEFINE_INTERFACES
    DEF_INTERFACE (Steinberg::Vst::IParameterFinder)
    DEF_INTERFACE (Steinberg::IPlugViewContentScaleSupport)
    END_DEFINE_INTERFACES (Steinberg::Vst::EditorView)
    REFCOUNT_METHODS (Steinberg::Vst::EditorView)

private:
    // EditorWindowListener
    void OnTick () override;
    void OnMouseDown (const WindowMouse& mouse) override;
    void OnMouseMove (const WindowMouse& mouse) override;
    void OnMouseUp (const WindowMouse& mouse) override;
    bool OnWheel (ZPoint pixel, double notches) override;
    bool OnKey (const NativeKey& key, bool down) override;
    void OnKeyboardLost () override { onFocus (false); }
    void OnFieldMessage (const std::function<void ()>& work) override;

    bool IsEditorOpen () const;
    ZPoint PanelPixels () const;
    ZPoint ToPanel (ZPoint pixel) const;
    bool IsParameter (std::int32_t id);
    bool OpenWindow (void* parent);
    void OpenEditor ();
    void CloseEditor ();
    void Reopen ();
    void Close ();
    void CloseWindow ();
    void Stay ();
    void Resize ();
    void ApplyScale ();

    ZEventImp& BeginInput ();
    void EndInput (bool holding);
    std::int32_t GetDialMode () const; // as the host set it: 0 round, 1 round from the value, 2 straight
    ZMouseInput InputOf (ZEvent& event, const WindowMouse& mouse) const;
    ZMouseInput Pointer (ZEvent& event);
    void Drag (ZEvent& event, ZMouseInput& mouse);
    void Paint (std::uint32_t time);
    void FollowKeyboard ();
    void LeaveInput ();
    template <typename Call>
    bool SendKey (const NativeKey& key, Call call);
    bool OnKeyDown (const NativeKey& key);
    bool OnKeyUp (const NativeKey& key);
    void OpenContextMenu (ZPoint pixel);

    EditorController& brackets; // not owned: the controller
    Steinberg::IPtr<Steinberg::FUnknown> fallbackContext;
    std::unique_ptr<ZGuiEditor> editor;
    PanelScale scale;
    std::unique_ptr<EditorWindow> window; // null while none is open
    std::vector<NativeKey> pressedKeys;   // those whose press was taken
    bool active = true;
    bool closing = false;             // the host has closed the window in the present HostCall
    bool staying = false;             // counts itself until the present HostCall ends
    bool dragIsOver = false;          // but was at work: ended on the next tick
    bool releaseExpected = false;     // the button of a drag is up, but its release has not come yet
    std::optional<ZPoint> menuWanted; // the pixel where the user asked for the context menu; on the next tick
    ScaleMenu scaleMenu;
};

} // namespace tessaly
