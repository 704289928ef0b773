#pragma once

#include "kvp_frame.h"
#include "pluginterfaces/gui/iplugview.h"
#include "vstgui/lib/platform/platform_x11.h"
#include "x11_window.h"
#include <memory>
#include <optional>

namespace tessaly
{

class HostRunLoop;

/// A frame's X11 window within the host's, from its opening to its end: VSTGUI's part of it, which draws and brings the
/// mouse, and our own client of the same window for the rest. Host's user-interface thread.
class PanelWindow final : private VSTGUI::X11::IEventHandler
{
public:
    /// @param frame   not owned: the caller's, outlives this; open after the call
    /// @param parent  the host's X11 window
    /// @param pixels  a coordinate
    /// @return null, with the frame closed, without a display or a run loop
    static std::unique_ptr<PanelWindow> Open (ZKVPFrame& frame, void* parent,
                                              const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop, double pixels,
                                              X11WindowListener& listener);
    ~PanelWindow () noexcept; ///< closes the frame

    ZX11EventImp& Input () { return window->Input (); }
    ZClipboard& Clipboard () { return window->Clipboard (); }
    X11Window& Window () { return *window; }
    /// In pixels of the view; nothing when the server gives no answer. VSTGUI's own question leaks each answer.
    std::optional<VSTGUI::CPoint> PointerPlace () const;
    void ReleaseGrab (); ///< VSTGUI holds the pointer while a button is down: a host's menu could not have it

private:
    PanelWindow (ZKVPFrame& shown, const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& hosts);

    void onEvent () override { window->Dispatch (); }

    ZKVPFrame& frame; // not owned: the view's
    VSTGUI::SharedPointer<HostRunLoop> runLoop;
    Steinberg::IPtr<Steinberg::Linux::IRunLoop> loop;
    std::unique_ptr<X11Window> window; // null until it is open
};

} // namespace tessaly
