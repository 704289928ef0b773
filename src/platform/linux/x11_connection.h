#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

namespace tessaly
{

/// Frees what xcb allocates.
struct XcbFree
{
    void operator() (void* reply) const;
};
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;
using XcbEvent = std::unique_ptr<xcb_generic_event_t, XcbFree>;

/// A connection to the X server, for one window of the panel. What it has asked for ends with it: hidden pointers,
/// cursors, selections. Errors of single requests are dropped, and on a broken connection every call does nothing.
/// Host's user-interface thread.
class X11Connection
{
public:
    static std::unique_ptr<X11Connection> Open (); ///< null without a display
    ~X11Connection ();
    X11Connection (const X11Connection&) = delete;
    X11Connection& operator= (const X11Connection&) = delete;

    xcb_connection_t* Get () const { return connection; }
    const xcb_screen_t& Screen () const { return *screen; }
    int FileDescriptor () const;
    bool IsBroken () const;
    void Flush ();
    void Sync (); ///< returns when the server has done everything

    xcb_atom_t Atom (std::string_view name); ///< 0 when the server does not answer
    xcb_cursor_t Cursor (std::int32_t kind); ///< kHandCursor, or else the arrow; 0: the parent window's

    void HidePointer ();
    void ShowPointer ();

    XcbEvent NextEvent (); ///< null when none has come
    /// Waits for an event that `accepts` says yes to, and keeps all others for NextEvent. @return null in the end
    XcbEvent WaitFor (const std::function<bool (const xcb_generic_event_t&)>& accepts, std::uint32_t milliseconds);

private:
    X11Connection (xcb_connection_t* opened, xcb_screen_t* of);

    xcb_connection_t* connection;
    xcb_screen_t* screen; // not owned: the connection's
    bool canHide = false;
    std::map<std::string, xcb_atom_t, std::less<>> atoms;
    std::map<std::int32_t, xcb_cursor_t> cursors;
    std::deque<XcbEvent> waiting;
};

} // namespace tessaly
