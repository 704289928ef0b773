#pragma once

#include "x11_clipboard.h"
#include "x11_connection.h"
#include "x11_event_imp.h"
#include "x11_keyboard.h"
#include <memory>
#include <optional>

namespace tessaly
{

/// What a window tells who works on it.
class X11WindowListener
{
public:
    virtual ~X11WindowListener () = default;
    virtual bool OnKey (const NativeKey& key, bool down) = 0; ///< @return whether it was taken
    virtual void OnKeyboardLost () = 0;                       ///< the user works elsewhere now
    virtual void OnPointer (bool inside) = 0; ///< has come or gone, also when the window did so under it
};

/// The panel's window as a second client sees it: one that another library has made within the host's window and draws
/// on. Adds what that library lacks: pointer, keyboard, clipboard, and good manners towards the host:
///
/// - A key that the panel does not take goes on to the host's window. X gives keys to the window under the pointer,
///   so without that the host would miss them.
/// - The input focus is taken for as long as it is asked for, and given back to who had it.
/// - The window goes with this object. Otherwise it would stay until the other library's connection ends.
///
/// The host may destroy the window at any time; from then on nothing happens here. Host's user-interface thread.
class X11Window
{
public:
    /// @param id       the window, which exists
    /// @param pixels   a coordinate
    /// @param hearing  not owned: outlives this
    X11Window (std::unique_ptr<X11Connection> opened, xcb_window_t id, double pixels, X11WindowListener& hearing);
    ~X11Window ();
    X11Window (const X11Window&) = delete;
    X11Window& operator= (const X11Window&) = delete;

    X11Connection& Connection () { return *connection; }
    ZX11EventImp& Input () { return input; }
    ZClipboard& Clipboard () { return clipboard; }

    void MarkMapped (); ///< for hosts that obey XEMBED, which leave a window unseen that does not ask to be shown
    void Dispatch ();   ///< everything that has arrived; to be called when the connection's descriptor can be read

    void TakeKeyboard ();
    void GiveKeyboardBack (); ///< nothing if somebody else has taken it since
    bool HasKeyboard () const { return hasKeyboard; }

    /// Whether the input focus was in this top-level window, or nowhere, and has gone to another one since the first
    /// call after ForgetFocus. X tells nothing of that to a window that has not got it.
    bool HasLostFocus ();
    void ForgetFocus () { focusSeen.reset (); }

private:
    void OnEvent (const xcb_generic_event_t& event);
    void PassOn (const xcb_generic_event_t& keyEvent);
    xcb_window_t Focused ();
    xcb_window_t ParentOf (xcb_window_t of);
    xcb_window_t TopLevelOf (xcb_window_t of);

    std::unique_ptr<X11Connection> connection;
    xcb_window_t window; // 0 when the host has destroyed it
    X11WindowListener& listener;
    ZX11EventImp input;
    X11Keyboard keyboard;
    X11Clipboard clipboard;
    bool hasKeyboard = false;
    bool gaveKeyboardBack = false; // and has not heard of it yet: a loss that the user did not cause
    xcb_window_t focusBefore = 0;
    std::optional<xcb_window_t> focusSeen; // by HasLostFocus
    bool focusWasHere = false;
};

} // namespace tessaly
