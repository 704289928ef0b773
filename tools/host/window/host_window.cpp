#include "host_window.h"

#include "host_error.h"

#include "pluginterfaces/gui/iplugviewcontentscalesupport.h"

namespace tessaly::host
{

using namespace Steinberg;

namespace
{

constexpr std::uint32_t kXEmbedMapped = 1; // bit of the second number of _XEMBED_INFO
constexpr std::uint32_t kXEmbedEmbeddedNotify = 0;
constexpr std::uint32_t kXEmbedVersion = 0;

} // namespace

HostWindow::HostWindow (PollRunLoop& hostLoop, WindowOptions windowOptions)
    : loop (hostLoop)
    , options (windowOptions)
{
}

HostWindow::~HostWindow ()
{
    Close ();
}

void HostWindow::Open (Vst::IEditController& controller)
{
    Close ();
    view = owned (controller.createView (Vst::ViewType::kEditor));
    if (!view)
        throw HostError ("the plug-in has no editor");
    if (view->isPlatformTypeSupported (kPlatformTypeX11EmbedWindowID) != kResultTrue)
    {
        Abandon ();
        throw HostError ("the plug-in's editor refuses X11 windows");
    }
    view->setFrame (this);
    if (options.scale > 0.0)
        TellScale (options.scale);
    TakeSizeOfView ();
    MakeWindow ();
    auto& attaching = *view; // it may be closed from within
    if (attaching.attached (reinterpret_cast<void*> (static_cast<std::uintptr_t> (window)),
                            kPlatformTypeX11EmbedWindowID) != kResultOk)
    {
        if (view)
            Abandon ();
        throw HostError ("the plug-in's editor does not attach");
    }
    Embed ();
    x.SetFocus (window);
}

void HostWindow::MakeWindow ()
{
    window = xcb_generate_id (x.Get ());
    const std::uint32_t values[]{ x.Screen ().black_pixel, XCB_EVENT_MASK_KEY_PRESS };
    xcb_create_window (x.Get (), XCB_COPY_FROM_PARENT, window, x.Screen ().root,
                       static_cast<std::int16_t> (options.left), static_cast<std::int16_t> (options.top),
                       static_cast<std::uint16_t> (width), static_cast<std::uint16_t> (height), 0,
                       XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                       values);
    xcb_map_window (x.Get (), window);
    x.Sync ();
}

void HostWindow::Embed () const
{
    const auto editor = EditorWindow ();
    if (editor == 0)
        return;
    const auto info = x.Numbers (editor, "_XEMBED_INFO");
    if (info.size () < 2 || (info[1] & kXEmbedMapped) != 0)
        xcb_map_window (x.Get (), editor);
    else
        xcb_unmap_window (x.Get (), editor);

    xcb_client_message_event_t notify{};
    notify.response_type = XCB_CLIENT_MESSAGE;
    notify.format = 32;
    notify.window = editor;
    notify.type = x.Atom ("_XEMBED");
    notify.data.data32[1] = kXEmbedEmbeddedNotify;
    notify.data.data32[3] = window;
    notify.data.data32[4] = kXEmbedVersion;
    xcb_send_event (x.Get (), 0, editor, 0, reinterpret_cast<const char*> (&notify));
    x.Sync ();
}

void HostWindow::Close ()
{
    if (!view)
        return;
    const auto leaving = view; // what it tells us now may have us close it
    leaving->removed ();
    if (view)
        Abandon ();
}

void HostWindow::Abandon ()
{
    view->setFrame (nullptr);
    view = nullptr;
    DestroyWindowUnderView ();
}

void HostWindow::DestroyWindowUnderView ()
{
    if (window == 0)
        return;
    xcb_destroy_window (x.Get (), window);
    x.Sync ();
    window = 0;
}

bool HostWindow::TellScale (double factor)
{
    const FUnknownPtr<IPlugViewContentScaleSupport> scaled (view.get ());
    return scaled && scaled->setContentScaleFactor (static_cast<float> (factor)) == kResultTrue;
}

xcb_window_t HostWindow::EditorWindow () const
{
    const auto children = x.Children (window);
    return children.empty () ? 0 : children.front ();
}

std::vector<std::uint8_t> HostWindow::TakeKeysForHost ()
{
    std::vector<std::uint8_t> keys;
    while (const auto event = x.NextEvent ())
        if ((event->response_type & 0x7F) == XCB_KEY_PRESS)
            keys.push_back (reinterpret_cast<const xcb_key_press_event_t&> (*event).detail);
    return keys;
}

void HostWindow::TakeSizeOfView ()
{
    ViewRect size;
    view->getSize (&size);
    width = size.getWidth ();
    height = size.getHeight ();
}

tresult PLUGIN_API HostWindow::resizeView (IPlugView* which, ViewRect* newSize)
{
    if (!newSize || which != view)
        return kInvalidArgument;
    if (options.closesOnResize)
    {
        Close ();
        return kResultFalse;
    }
    width = newSize->getWidth ();
    height = newSize->getHeight ();
    if (window != 0)
    {
        const std::uint32_t size[]{ static_cast<std::uint32_t> (width), static_cast<std::uint32_t> (height) };
        xcb_configure_window (x.Get (), window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
        x.Sync ();
    }
    return view->onSize (newSize);
}

tresult PLUGIN_API HostWindow::queryInterface (const TUID wanted, void** out)
{
    QUERY_INTERFACE (wanted, out, FUnknown::iid, IPlugFrame)
    QUERY_INTERFACE (wanted, out, IPlugFrame::iid, IPlugFrame)
    if (options.offersRunLoop)
        return loop.queryInterface (wanted, out);
    *out = nullptr;
    return kNoInterface;
}

} // namespace tessaly::host
