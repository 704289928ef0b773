#include "x_connection.h"

#include "host_error.h"

namespace tessaly::host
{

XConnection::XConnection ()
{
    int screenNumber = 0;
    connection = xcb_connect (nullptr, &screenNumber);
    if (xcb_connection_has_error (connection) != 0)
    {
        xcb_disconnect (connection);
        throw HostError ("no X server answers");
    }
    auto screens = xcb_setup_roots_iterator (xcb_get_setup (connection));
    while (screenNumber-- > 0)
        xcb_screen_next (&screens);
    screen = screens.data;
}

XConnection::~XConnection ()
{
    xcb_disconnect (connection);
}

xcb_atom_t XConnection::Atom (const std::string& name) const
{
    const auto cookie = xcb_intern_atom (connection, 0, static_cast<std::uint16_t> (name.size ()), name.data ());
    const ReplyPtr<xcb_intern_atom_reply_t> reply (xcb_intern_atom_reply (connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{ XCB_ATOM_NONE };
}

ReplyPtr<xcb_generic_event_t> XConnection::NextEvent () const
{
    return ReplyPtr<xcb_generic_event_t> (xcb_poll_for_event (connection));
}

void XConnection::Sync () const
{
    Focus ();
}

std::vector<xcb_window_t> XConnection::Children (xcb_window_t window) const
{
    const ReplyPtr<xcb_query_tree_reply_t> reply (
        xcb_query_tree_reply (connection, xcb_query_tree (connection, window), nullptr));
    if (!reply)
        return {};
    const auto* first = xcb_query_tree_children (reply.get ());
    return { first, first + xcb_query_tree_children_length (reply.get ()) };
}

bool XConnection::IsShown (xcb_window_t window) const
{
    const auto cookie = xcb_get_window_attributes (connection, window);
    const ReplyPtr<xcb_get_window_attributes_reply_t> reply (
        xcb_get_window_attributes_reply (connection, cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::vector<std::uint32_t> XConnection::Numbers (xcb_window_t window, const std::string& property) const
{
    constexpr std::uint32_t kMostNumbers = 1024;
    const auto cookie =
        xcb_get_property (connection, 0, window, Atom (property), XCB_GET_PROPERTY_TYPE_ANY, 0, kMostNumbers);
    const ReplyPtr<xcb_get_property_reply_t> reply (xcb_get_property_reply (connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const std::uint32_t*> (xcb_get_property_value (reply.get ()));
    return { first, first + reply->value_len };
}

xcb_window_t XConnection::Focus () const
{
    const ReplyPtr<xcb_get_input_focus_reply_t> reply (
        xcb_get_input_focus_reply (connection, xcb_get_input_focus (connection), nullptr));
    return reply ? reply->focus : xcb_window_t{ XCB_INPUT_FOCUS_NONE };
}

void XConnection::SetFocus (xcb_window_t window) const
{
    xcb_set_input_focus (connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    Sync ();
}

} // namespace tessaly::host
