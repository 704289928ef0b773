#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace tessaly::host
{

/// A reply of the X server, which its reader frees.
struct ReplyFree
{
    void operator() (void* reply) const { std::free (reply); }
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, ReplyFree>;

/// A client of the X server that $DISPLAY names, apart from the plug-in's, with the questions that a host or a test
/// asks. One thread.
class XConnection
{
public:
    /// @throws HostError when there is no such server
    XConnection ();
    ~XConnection ();

    XConnection (const XConnection&) = delete;
    XConnection& operator= (const XConnection&) = delete;

    xcb_connection_t* Get () const { return connection; }
    xcb_screen_t& Screen () const { return *screen; }

    xcb_atom_t Atom (const std::string& name) const;

    /// The next event, or null when none has arrived.
    ReplyPtr<xcb_generic_event_t> NextEvent () const;

    /// Returns when the server has done all that was asked of it.
    void Sync () const;

    /// From bottom to top.
    std::vector<xcb_window_t> Children (xcb_window_t window) const;

    bool IsShown (xcb_window_t window) const;

    /// A property of 32-bit numbers; empty when the window has none of that name.
    std::vector<std::uint32_t> Numbers (xcb_window_t window, const std::string& property) const;

    /// The window that has the input focus, or XCB_INPUT_FOCUS_POINTER_ROOT or _NONE.
    xcb_window_t Focus () const;
    void SetFocus (xcb_window_t window) const;

private:
    xcb_connection_t* connection;
    xcb_screen_t* screen = nullptr; // not owned: the connection
};

} // namespace tessaly::host
