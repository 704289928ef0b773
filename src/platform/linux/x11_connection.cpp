#include "x11_connection.h"

#include "event.h"
#include <array>
#include <chrono>
#include <cstdlib>
#include <poll.h>
#include <xcb/xcb.h>
#include <xcb/xcb_aux.h>
#include <xcb/xcb_cursor.h>
#include <xcb/xfixes.h>

namespace tessaly
{

void XcbFree::operator() (void* reply) const
{
    std::free (reply); // NOLINT: xcb allocates with malloc
}

std::unique_ptr<X11Connection> X11Connection::Open ()
{
    int number = 0;
    auto* const opened = xcb_connect (nullptr, &number);
    auto* const screen = xcb_connection_has_error (opened) == 0 ? xcb_aux_get_screen (opened, number) : nullptr;
    if (screen != nullptr)
        return std::unique_ptr<X11Connection> (new X11Connection (opened, screen));
    xcb_disconnect (opened); // it is an object even where there is no display
    return nullptr;
}

X11Connection::X11Connection (xcb_connection_t* opened, xcb_screen_t* of)
    : connection (opened)
    , screen (of)
{
    const auto* const fixes = xcb_get_extension_data (connection, &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0)
        return;
    const auto asked = xcb_xfixes_query_version (connection, 4, 0); // 4: the first that hides pointers
    const XcbReply<xcb_xfixes_query_version_reply_t> version (
        xcb_xfixes_query_version_reply (connection, asked, nullptr));
    canHide = version != nullptr && version->major_version >= 4;
}

X11Connection::~X11Connection ()
{
    waiting.clear ();
    xcb_disconnect (connection);
}

int X11Connection::FileDescriptor () const
{
    return xcb_get_file_descriptor (connection);
}

bool X11Connection::IsBroken () const
{
    return xcb_connection_has_error (connection) != 0;
}

void X11Connection::Flush ()
{
    xcb_flush (connection);
}

void X11Connection::Sync ()
{
    xcb_aux_sync (connection);
}

xcb_atom_t X11Connection::Atom (std::string_view name)
{
    if (const auto known = atoms.find (name); known != atoms.end ())
        return known->second;
    const auto asked = xcb_intern_atom (connection, 0, static_cast<std::uint16_t> (name.size ()), name.data ());
    const XcbReply<xcb_intern_atom_reply_t> reply (xcb_intern_atom_reply (connection, asked, nullptr));
    const auto atom = reply != nullptr ? reply->atom : 0;
    atoms.emplace (name, atom);
    return atom;
}

xcb_cursor_t X11Connection::Cursor (std::int32_t kind)
{
    if (const auto known = cursors.find (kind); known != cursors.end ())
        return known->second;
    // Names of cursor themes, then of X's own cursor font.
    constexpr std::array<const char*, 4> kHand{ "pointer", "hand2", "pointing_hand", "hand1" };
    constexpr std::array<const char*, 4> kArrow{ "default", "left_ptr", "arrow", "top_left_arrow" };
    xcb_cursor_context_t* context = nullptr;
    xcb_cursor_t cursor = 0;
    if (xcb_cursor_context_new (connection, screen, &context) >= 0)
    {
        for (const char* name : kind == kHandCursor ? kHand : kArrow)
            if (cursor == 0)
                cursor = xcb_cursor_load_cursor (context, name);
        xcb_cursor_context_free (context);
    }
    cursors.emplace (kind, cursor);
    return cursor;
}

void X11Connection::HidePointer ()
{
    if (!canHide)
        return;
    xcb_xfixes_hide_cursor (connection, screen->root);
    Flush ();
}

void X11Connection::ShowPointer ()
{
    if (!canHide)
        return;
    xcb_xfixes_show_cursor (connection, screen->root);
    Flush ();
}

XcbEvent X11Connection::NextEvent ()
{
    if (waiting.empty ())
        return XcbEvent (xcb_poll_for_event (connection));
    auto event = std::move (waiting.front ());
    waiting.pop_front ();
    return event;
}

XcbEvent X11Connection::WaitFor (const std::function<bool (const xcb_generic_event_t&)>& accepts,
                                 std::uint32_t milliseconds)
{
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now () + std::chrono::milliseconds (milliseconds);
    Flush ();
    while (!IsBroken ())
    {
        while (auto event = XcbEvent (xcb_poll_for_event (connection)))
        {
            if (accepts (*event))
                return event;
            waiting.push_back (std::move (event));
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds> (deadline - Clock::now ()).count ();
        if (left <= 0)
            break;
        pollfd readable{ FileDescriptor (), POLLIN, 0 };
        poll (&readable, 1, static_cast<int> (left));
    }
    return nullptr;
}

} // namespace tessaly
