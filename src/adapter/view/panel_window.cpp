#include "panel_window.h"

#include "host_run_loop.h"
#include "public.sdk/source/main/moduleinit.h"
#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/cairographicscontext.h"
#include "vstgui/lib/platform/linux/linuxfactory.h"
#include "vstgui/lib/platform/linux/x11platform.h"
#include "vstgui/lib/platform/platformfactory.h"
#include "vstgui/lib/vstguiinit.h"
#include <cstdint>
#include <xcb/xcb.h>

namespace tessaly
{

using namespace VSTGUI;

namespace
{

constexpr std::uint32_t kKeyEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;

int openWindows = 0; // of this module; host's user-interface thread

/// Cairo keeps what it knows of a connection until the connection's device is finished. VSTGUI does that when its
/// connection closes, but nobody tells it the device; the next connection that lands at the same address would then be
/// taken for the dead one, which ends the host.
void TellDevice ()
{
    const auto& devices = getPlatformFactory ().asLinuxFactory ()->getCairoGraphicsDeviceFactory ();
    const auto device = std::static_pointer_cast<CairoGraphicsDevice> (devices.getDeviceForScreen ({}));
    X11::RunLoop::instance ().setDevice (device->get ());
}

/// VSTGUI's list of devices grows with every connection: with the last window it begins anew.
void ForgetDevices ()
{
    VSTGUI::exit ();
    VSTGUI::init (Steinberg::getPlatformModuleHandle ());
}

xcb_window_t IdOf (const CFrame& frame)
{
    return dynamic_cast<X11::IX11Frame*> (frame.getPlatformFrame ())->getX11WindowID ();
}

/// Keys come through our own client, which can hand on what the panel does not take.
void LeaveKeysAlone (xcb_window_t window)
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    const XcbReply<xcb_get_window_attributes_reply_t> now (
        xcb_get_window_attributes_reply (connection, xcb_get_window_attributes (connection, window), nullptr));
    if (now == nullptr)
        return;
    const std::uint32_t events = now->your_event_mask & ~kKeyEvents;
    xcb_change_window_attributes (connection, window, XCB_CW_EVENT_MASK, &events);
    xcb_flush (connection);
}

} // namespace

PanelWindow::PanelWindow (ZKVPFrame& shown, const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& hosts)
    : frame (shown)
    , runLoop (HostRunLoop::Shared ())
    , loop (hosts)
{
    runLoop->Join (loop);
}

std::unique_ptr<PanelWindow> PanelWindow::Open (ZKVPFrame& frame, void* parent,
                                                const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop, double pixels,
                                                X11WindowListener& listener)
{
    auto connection = loop != nullptr ? X11Connection::Open () : nullptr;
    if (connection == nullptr) // looked at first: VSTGUI would go on all the same
    {
        frame.Close ();
        return nullptr;
    }
    std::unique_ptr<PanelWindow> opened (new PanelWindow (frame, loop));
    X11::FrameConfig config;
    config.runLoop = opened->runLoop.get ();
    if (!frame.Get ().open (parent, PlatformType::kX11EmbedWindowID, &config))
        return nullptr;
    if (++openWindows == 1)
        TellDevice ();
    const auto id = IdOf (frame.Get ());
    LeaveKeysAlone (id);
    opened->window = std::make_unique<X11Window> (std::move (connection), id, pixels, listener);
    opened->window->MarkMapped ();
    opened->runLoop->registerEventHandler (opened->window->Connection ().FileDescriptor (), opened.get ());
    return opened;
}

PanelWindow::~PanelWindow () noexcept
{
    const bool wasOpen = window != nullptr;
    if (wasOpen)
        runLoop->unregisterEventHandler (this);
    window.reset (); // the window goes while VSTGUI's connection still stands
    frame.Close ();
    runLoop->Leave (loop);
    if (wasOpen && --openWindows == 0)
        ForgetDevices ();
}

std::optional<CPoint> PanelWindow::PointerPlace () const
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    const auto asked = xcb_query_pointer (connection, IdOf (frame.Get ()));
    const XcbReply<xcb_query_pointer_reply_t> reply (xcb_query_pointer_reply (connection, asked, nullptr));
    if (reply == nullptr)
        return std::nullopt;
    return CPoint (reply->win_x, reply->win_y);
}

void PanelWindow::ReleaseGrab ()
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    xcb_ungrab_pointer (connection, XCB_CURRENT_TIME);
    xcb_flush (connection);
}

} // namespace tessaly
