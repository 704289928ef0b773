#pragma once

#include "native_key.h"
#include "x11_connection.h"
#include <cstdint>
#include <memory>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace tessaly
{

struct XkbRelease
{
    void operator() (xkb_context* context) const;
    void operator() (xkb_keymap* keymap) const;
    void operator() (xkb_state* state) const;
};

/// Translates the key codes of the user's keyboard. A held key comes as presses without releases between them, where
/// the server can do that. A server without the XKB extension gives no keys. Host's user-interface thread.
class X11Keyboard
{
public:
    explicit X11Keyboard (X11Connection& of); ///< not owned: the window's, outlives this

    void Reload (); ///< the user's keyboard may be another now
    /// @param state  modifiers and group, as the event has them
    NativeKey KeyOf (std::uint8_t code, std::uint16_t state) const;

private:
    X11Connection& connection;
    std::unique_ptr<xkb_context, XkbRelease> context; // null without the extension
    std::unique_ptr<xkb_keymap, XkbRelease> keymap;
    std::unique_ptr<xkb_state, XkbRelease> keys;
};

} // namespace tessaly
