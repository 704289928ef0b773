#include "panel_window.h"

#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "host_run_loop.h"
#include "public.sdk/source/main/moduleinit.h"
#include "vst3_control_wrapper.h"
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
constexpr std::uint32_t kTickMs = 30;

int sessions = 0; // of this module; host's user-interface thread

CRect RectOf (ZPoint size)
{
    return { 0.0, 0.0, static_cast<CCoord> (size.x), static_cast<CCoord> (size.y) };
}

/// Cairo keeps what it knows of a connection until the connection's device is finished. VSTGUI does that when its
/// connection closes, but nobody tells it the device; the next connection that lands at the same address would then be
/// taken for the dead one, which ends the host.
void TellDevice ()
{
    const auto& devices = getPlatformFactory ().asLinuxFactory ()->getCairoGraphicsDeviceFactory ();
    const auto device = std::static_pointer_cast<CairoGraphicsDevice> (devices.getDeviceForScreen ({}));
    X11::RunLoop::instance ().setDevice (device->get ());
}

xcb_window_t IdOf (const CFrame& frame)
{
    return dynamic_cast<X11::IX11Frame*> (frame.getPlatformFrame ())->getX11WindowID ();
}

/// What VSTGUI is not to hear: keys come through our own client, which can hand on what the panel does not take. And
/// of moves it asks for hints alone, one for all that come until it looks: the last ones of a quick drag would be lost.
void NarrowEvents (xcb_window_t window)
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    const XcbReply<xcb_get_window_attributes_reply_t> now (
        xcb_get_window_attributes_reply (connection, xcb_get_window_attributes (connection, window), nullptr));
    if (now == nullptr)
        return;
    const std::uint32_t events = now->your_event_mask & ~(kKeyEvents | XCB_EVENT_MASK_POINTER_MOTION_HINT);
    xcb_change_window_attributes (connection, window, XCB_CW_EVENT_MASK, &events);
    xcb_flush (connection);
}

} // namespace

VstguiSession::VstguiSession ()
{
    if (sessions++ == 0)
        VSTGUI::init (Steinberg::getPlatformModuleHandle ());
}

VstguiSession::~VstguiSession () noexcept
{
    if (--sessions == 0)
        VSTGUI::exit ();
}

PanelWindow::PanelWindow (ZPoint size, const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& hosts,
                          EditorWindowListener& hearing)
    : listener (hearing)
    , runLoop (HostRunLoop::Shared ())
    , loop (hosts)
    , panelFrame (RectOf (size), this)
    , control (new ZVst3ControlWrapper (RectOf (size), hearing)) // counted by VSTGUI: the frame ends it
{
    panelFrame.AddControl (control);
    MakeSurface (1, 1, 1.0);
    runLoop->Join (loop);
}

std::unique_ptr<PanelWindow> PanelWindow::Open (void* parent, ZPoint size, double pixels,
                                                const Steinberg::IPtr<Steinberg::Linux::IRunLoop>& loop,
                                                EditorWindowListener& hearing)
{
    auto connection = loop != nullptr ? X11Connection::Open () : nullptr;
    if (connection == nullptr) // looked at first: VSTGUI would go on all the same
        return nullptr;
    std::unique_ptr<PanelWindow> opened (new PanelWindow (size, loop, hearing));
    X11::FrameConfig config;
    config.runLoop = opened->runLoop.get ();
    auto& shown = opened->panelFrame.Get ();
    if (!shown.open (parent, PlatformType::kX11EmbedWindowID, &config))
        return nullptr;
    opened->frame = &shown;
    shown.setMouseEnabled (true);
    TellDevice ();
    const auto id = IdOf (shown);
    NarrowEvents (id);
    X11WindowListener& hears = *opened; // made here: make_unique has no access to a private base
    opened->window = std::make_unique<X11Window> (std::move (connection), id, pixels, hears);
    opened->window->MarkMapped ();
    opened->runLoop->registerEventHandler (opened->window->Connection ().FileDescriptor (), opened.get ());
    opened->timer = makeOwned<CVSTGUITimer> ([window = opened.get ()] (CVSTGUITimer*) { window->Tick (); }, kTickMs);
    return opened;
}

PanelWindow::~PanelWindow () noexcept
{
    if (timer != nullptr)
        timer->stop ();
    if (window != nullptr)
        runLoop->unregisterEventHandler (this);
    frame = nullptr;
    window.reset (); // the window goes while VSTGUI's connection still stands
    control->SetSurface (nullptr);
    panelFrame.Close ();
    runLoop->Leave (loop);
}

void PanelWindow::Tick ()
{
    window->Dispatch (); // what came in while a paste waited
    listener.OnTick ();
    frame->idle ();
}

std::optional<ZPoint> PanelWindow::PointerPixel () const
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    const auto asked = xcb_query_pointer (connection, IdOf (panelFrame.Get ()));
    const XcbReply<xcb_query_pointer_reply_t> reply (xcb_query_pointer_reply (connection, asked, nullptr));
    if (reply == nullptr)
        return std::nullopt;
    return ZPoint{ reply->win_x, reply->win_y };
}

void PanelWindow::ReleasePointer ()
{
    auto* const connection = X11::RunLoop::instance ().getXcbConnection ();
    xcb_ungrab_pointer (connection, XCB_CURRENT_TIME);
    xcb_flush (connection);
}

void PanelWindow::Resize (ZPoint pixels)
{
    const auto size = RectOf (pixels);
    control->SetViewSize (size);
    frame->setSize (size.getWidth (), size.getHeight ());
    frame->setMouseableArea (size);
}

void PanelWindow::MakeSurface (std::int32_t width, std::int32_t height, double scale)
{
    surface = std::make_unique<PanelSurface> (width, height, scale);
    control->SetSurface (surface.get ());
    if (window != nullptr)
        window->Input ().SetScale (scale);
}

void PanelWindow::ShowChanges ()
{
    const auto changes = surface->TakeChanges ();
    for (const auto& pixels : changes.Rects ())
        control->invalidRect (CRect (pixels.left, pixels.top, pixels.right, pixels.bottom));
}

std::unique_ptr<ZMatrixMenuImp> PanelWindow::CreateMenuImp ()
{
    return std::make_unique<ZCanvasMenuImp> (surface->Canvas ());
}

std::unique_ptr<ZTextEditImp> PanelWindow::CreateTextEditImp ()
{
    return std::make_unique<ZCanvasTextEditImp> (surface->Canvas (), &window->Clipboard ());
}

} // namespace tessaly
