#include "clipboard_peer.h"

#include "x_connection.h"

#include <algorithm>
#include <chrono>

namespace tessaly::host
{

namespace
{

using namespace std::chrono_literals;

constexpr std::size_t kPartBytes = 65536;
constexpr auto kPause = 2ms; // between looks at the connection

xcb_window_t MakeHiddenWindow (const XConnection& x)
{
    const auto window = xcb_generate_id (x.Get ());
    xcb_create_window (x.Get (), XCB_COPY_FROM_PARENT, window, x.Screen ().root, 0, 0, 1, 1, 0,
                       XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

/// @return whether the text goes in parts, and this has told so
bool AnnounceParts (const XConnection& x, const xcb_selection_request_event_t& request, const std::string& text)
{
    if (request.target != x.Atom ("UTF8_STRING") || text.size () <= kPartBytes)
        return false;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes (x.Get (), request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<std::uint32_t> (text.size ());
    xcb_change_property (x.Get (), XCB_PROP_MODE_REPLACE, request.requestor, request.property, x.Atom ("INCR"), 32, 1,
                         &size);
    return true;
}

/// @return the type of what was written; none when the target is not one we have
xcb_atom_t WriteAnswer (const XConnection& x, const xcb_selection_request_event_t& request, const std::string& text)
{
    const auto utf8 = x.Atom ("UTF8_STRING");
    const auto targets = x.Atom ("TARGETS");
    if (request.target == targets)
    {
        const xcb_atom_t offered[]{ targets, utf8 };
        xcb_change_property (x.Get (), XCB_PROP_MODE_REPLACE, request.requestor, request.property, XCB_ATOM_ATOM, 32, 2,
                             offered);
        return request.property;
    }
    if (request.target != utf8)
        return XCB_ATOM_NONE;
    xcb_change_property (x.Get (), XCB_PROP_MODE_REPLACE, request.requestor, request.property, utf8, 8,
                         static_cast<std::uint32_t> (text.size ()), text.data ());
    return request.property;
}

void Answer (const XConnection& x, const xcb_selection_request_event_t& request, const std::string& text)
{
    // The server copies the 32 bytes of the largest event.
    union
    {
        xcb_selection_notify_event_t notify;
        char bytes[32];
    } answer{};
    answer.notify.response_type = XCB_SELECTION_NOTIFY;
    answer.notify.time = request.time;
    answer.notify.requestor = request.requestor;
    answer.notify.selection = request.selection;
    answer.notify.target = request.target;
    answer.notify.property = AnnounceParts (x, request, text) ? request.property : WriteAnswer (x, request, text);
    xcb_send_event (x.Get (), 0, request.requestor, 0, answer.bytes);
    xcb_flush (x.Get ());
}

std::optional<std::string> ReadProperty (const XConnection& x, const xcb_selection_notify_event_t& notify)
{
    if (notify.property == XCB_ATOM_NONE)
        return std::nullopt;
    constexpr std::uint32_t kMostWords = 1 << 20;
    const auto cookie =
        xcb_get_property (x.Get (), 1, notify.requestor, notify.property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords);
    const ReplyPtr<xcb_get_property_reply_t> reply (xcb_get_property_reply (x.Get (), cookie, nullptr));
    if (!reply)
        return std::nullopt;
    const auto* first = static_cast<const char*> (xcb_get_property_value (reply.get ()));
    return std::string (first, static_cast<std::size_t> (xcb_get_property_value_length (reply.get ())));
}

std::optional<std::string> Paste ()
{
    const XConnection x;
    xcb_convert_selection (x.Get (), MakeHiddenWindow (x), x.Atom ("CLIPBOARD"), x.Atom ("UTF8_STRING"),
                           x.Atom ("TESSALY_PASTE"), XCB_CURRENT_TIME);
    xcb_flush (x.Get ());
    const auto end = std::chrono::steady_clock::now () + 3s;
    while (std::chrono::steady_clock::now () < end)
    {
        const auto event = x.NextEvent ();
        if (event && (event->response_type & 0x7F) == XCB_SELECTION_NOTIFY)
            return ReadProperty (x, reinterpret_cast<const xcb_selection_notify_event_t&> (*event));
        if (!event)
            std::this_thread::sleep_for (kPause);
    }
    return std::nullopt;
}

} // namespace

ClipboardOwner::ClipboardOwner (std::string textToOffer)
    : text (std::move (textToOffer))
{
    std::promise<void> ready;
    auto isReady = ready.get_future ();
    server = std::jthread ([this, &ready] (const std::stop_token& stop) { Serve (stop, ready); });
    isReady.get ();
}

/// The last one is empty.
void ClipboardOwner::SendPart (const XConnection& x)
{
    const auto length = std::min (kPartBytes, text.size () - sent);
    xcb_change_property (x.Get (), XCB_PROP_MODE_REPLACE, reader, place, x.Atom ("UTF8_STRING"), 8,
                         static_cast<std::uint32_t> (length), text.data () + sent);
    xcb_flush (x.Get ());
    sent += length;
    if (length != 0)
        return;
    reader = 0;
    ++textsSent;
}

void ClipboardOwner::Serve (const std::stop_token& stop, std::promise<void>& ready)
try
{
    const XConnection x;
    xcb_set_selection_owner (x.Get (), MakeHiddenWindow (x), x.Atom ("CLIPBOARD"), XCB_CURRENT_TIME);
    x.Sync ();
    owns = true;
    ready.set_value ();
    while (!stop.stop_requested () && owns)
    {
        const auto event = x.NextEvent ();
        const int type = event ? event->response_type & 0x7F : 0;
        if (type == XCB_SELECTION_REQUEST)
        {
            const auto& request = reinterpret_cast<const xcb_selection_request_event_t&> (*event);
            Answer (x, request, text);
            reader = text.size () > kPartBytes ? request.requestor : 0;
            place = request.property;
            sent = 0;
        }
        else if (type == XCB_PROPERTY_NOTIFY)
        {
            const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&> (*event);
            if (changed.window == reader && changed.atom == place && changed.state == XCB_PROPERTY_DELETE)
                SendPart (x);
        }
        else if (type == XCB_SELECTION_CLEAR)
            owns = false;
        else if (!event)
            std::this_thread::sleep_for (kPause);
    }
}
catch (...)
{
    ready.set_exception (std::current_exception ()); // only the connection throws
}

std::future<std::optional<std::string>> PasteElsewhere ()
{
    return std::async (std::launch::async, Paste);
}

} // namespace tessaly::host
