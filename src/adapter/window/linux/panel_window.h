#pragma once

#include "editor_window.h"
#include "kvp_frame.h"
#include "panel_surface.h"
#include "pluginterfaces/gui/iplugview.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/platform_x11.h"
#include "x11_window.h"
#include <memory>
#include <optional>

namespace tessaly
{

class HostRunLoop;

/// VSTGUI's library, for as long as a window of this module is there. Its list of devices grows with every connection:
/// with the next first window it begins anew.
class VstguiSession
{
public:
    VstguiSession ();
    ~VstguiSession () noexcept;
    VstguiSession (const VstguiSession&) = delete;
    VstguiSession& operator= (const VstguiSession&) = delete;
};

/// The panel's X11 window within the host's: VSTGUI's frame, which draws and brings the mouse, and our own client of the
/// same window for the rest. Its calls come from the host's run loop.
class PanelWindow final : public EditorWindow,
                          private VSTGUI::VSTGUIEditorInterface,
                          private VSTGUI::X11::IEventHandler,
                          private X11WindowListener
{
public:
    /// @param parent  the host's X11 window
    /// @param size    pixels
    /// @param pixels  a coordinate
    /// @return null without a display or a run loop
    static std::unique_ptr<PanelWindow> Open (void* parent, ZPoint size, double pixels,
                                              const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop,
                                              EditorWindowListener& hearing);
    ~PanelWindow () noexcept override;

    WindowInput& Input () override { return window->Input (); }
    bool IsPointerInside () const override { return panelFrame.IsMouseInside (); }
    std::optional<ZPoint> PointerPixel () const override; ///< asks itself: VSTGUI's own question leaks each answer
    void ReleasePointer () override;
    void TakeKeyboard () override { window->TakeKeyboard (); }
    void GiveKeyboardBack () override { window->GiveKeyboardBack (); }
    bool HasLostFocus () override { return window->HasLostFocus (); }
    void ForgetFocus () override { window->ForgetFocus (); }

    void Resize (ZPoint pixels) override;
    void MakeSurface (std::int32_t width, std::int32_t height, double scale) override;
    ZCanvas& Canvas () override { return surface->Canvas (); }
    void ShowChanges () override;
    void ShowAll () override { frame->invalid (); }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override;
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override;

private:
    PanelWindow (ZPoint size, const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& hosts, EditorWindowListener& hearing);

    void Tick ();
    void onEvent () override { window->Dispatch (); }
    bool OnKey (const NativeKey& key, bool down) override { return listener.OnKey (key, down); }
    void OnKeyboardLost () override { listener.OnKeyboardLost (); }
    void OnPointer (bool inside) override { panelFrame.SetMouseInside (inside); }

    VstguiSession session; // goes last
    EditorWindowListener& listener;
    VSTGUI::SharedPointer<HostRunLoop> runLoop;
    Steinberg::IPtr<Steinberg::Linux::IRunLoop> loop;
    ZKVPFrame panelFrame;
    ZVst3ControlWrapper* control; // not owned: the frame
    std::unique_ptr<PanelSurface> surface;
    std::unique_ptr<X11Window> window; // null until it is open
    VSTGUI::SharedPointer<VSTGUI::CVSTGUITimer> timer;
};

} // namespace tessaly
