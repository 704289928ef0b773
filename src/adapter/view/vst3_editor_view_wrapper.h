#pragma once

#include "editor_controller.h"
#include "editor_wrapper.h"
#include "event.h"
#include "geometry.h"
#include "panel_scale.h"
#include "panel_surface.h"
#include "panel_window.h"
#include "pluginterfaces/gui/iplugviewcontentscalesupport.h"
#include "pluginterfaces/vst/ivstplugview.h"
#include "public.sdk/source/vst/vstguieditor.h"
#include "scale_menu.h"
#include "vstgui/lib/controls/icontrollistener.h"
#include <memory>
#include <optional>
#include <string_view>

namespace tessaly
{

class ZGuiEditor;
class ZVst3ControlWrapper;

/// The editor in the host's window: the view that the host sees, and the surroundings that the editor sees.
///
/// The panel is drawn at PanelScale into a surface that keeps its pixels; on each tick a pass paints what has changed
/// there, and VSTGUI shows that part of it. When the scale changes, or the effect goes or comes while the window is
/// open, the editor closes and opens again in it. A host may close the window, let go of the view, or change the scale
/// from within any call that the panel makes to it: what is on the stack then ends with the outermost HostCall.
///
/// Host's user-interface thread.
class ZVst3EditorViewWrapper final : public Steinberg::Vst::VSTGUIEditor,
                                     public Steinberg::Vst::IParameterFinder,
                                     public Steinberg::IPlugViewContentScaleSupport,
                                     public VSTGUI::IControlListener,
                                     public ZEditorWrapper,
                                     public EditorViewListener,
                                     private X11WindowListener
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

    // The control's calls
    ZEventImp& BeginInput ();
    void EndInput (bool holding); ///< @param holding  an edit of the user goes on
    ZPoint ToPanel (const VSTGUI::CPoint& where) const;
    std::int32_t GetDialMode () const; ///< as the host set it: 0 round, 1 round from the value, 2 straight
    void Blit (VSTGUI::CDrawContext& context) const { surface->Blit (context); }
    void ChooseScale (double factor); ///< by the user

    // IPlugView
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

    // VSTGUIEditor
    bool PLUGIN_API open (void* parent, const VSTGUI::PlatformType& type) override;
    void PLUGIN_API close () override;
    VSTGUI::CMessageResult notify (VSTGUI::CBaseObject* sender, const char* message) override;

    // IControlListener
    void valueChanged (VSTGUI::CControl* /*control*/) override {}
    std::int32_t controlModifierClicked (VSTGUI::CControl* control, VSTGUI::CButtonState buttons) override;

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

    OBJ_METHODS (ZVst3EditorViewWrapper, Steinberg::Vst::VSTGUIEditor)
    DEFINE_INTERFACES
    DEF_INTERFACE (Steinberg::Vst::IParameterFinder)
    DEF_INTERFACE (Steinberg::IPlugViewContentScaleSupport)
    END_DEFINE_INTERFACES (Steinberg::Vst::VSTGUIEditor)
    REFCOUNT_METHODS (Steinberg::Vst::VSTGUIEditor)

private:
    bool OnKey (const NativeKey& key, bool down) override;
    void OnKeyboardLost () override;
    void OnPointer (bool inside) override;

    bool IsEditorOpen () const;
    ZPoint PanelPixels () const;
    Steinberg::IPtr<Steinberg::Linux::IRunLoop> FindRunLoop () const;
    bool IsParameter (std::int32_t id);
    void OpenEditor ();
    void CloseEditor ();
    void Reopen ();
    void CloseWindow ();
    void Stay ();
    void Resize ();
    void ApplyScale ();

    void Tick ();
    ZMouseInput Pointer (ZEvent& event);
    void Drag (ZEvent& event, ZMouseInput& mouse);
    void Paint (std::uint32_t time);
    void FollowKeyboard ();
    void LeaveInput ();
    void OpenContextMenu (VSTGUI::CPoint where);

    EditorController& brackets; // not owned: the controller
    Steinberg::IPtr<Steinberg::FUnknown> fallbackContext;
    std::unique_ptr<ZGuiEditor> editor;
    PanelScale scale;
    std::unique_ptr<PanelSurface> surface; // null while no window is open, as all below
    std::unique_ptr<ZKVPFrame> panelFrame;
    std::unique_ptr<PanelWindow> window;
    ZVst3ControlWrapper* control = nullptr; // not owned: the frame
    bool active = true;
    bool closing = false;                     // the host has closed the window in the present HostCall
    bool staying = false;                     // counts itself until the present HostCall ends
    bool dragIsOver = false;                  // but was at work: ended on the next tick
    bool releaseExpected = false;             // the button of a drag is up, but its release has not come yet
    std::optional<VSTGUI::CPoint> menuWanted; // where the user asked for the context menu; on the next tick
    ScaleMenu scaleMenu;
};

} // namespace tessaly
