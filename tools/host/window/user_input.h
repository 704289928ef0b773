#pragma once

#include "x_connection.h"

#include <string_view>

using xcb_key_symbols_t = struct _XCBKeySymbols;

namespace tessaly::host
{

/// A user's hands: moves the X server's one pointer and its keyboard by the XTEST extension, so that every window gets
/// what real input would send it. Every call returns when the server has taken the input. Places are pixels of the
/// screen; keys are X keysyms.
class UserInput
{
public:
    enum Button : std::uint8_t
    {
        left = 1,
        middle = 2,
        right = 3
    };

    /// @param to  not owned: the caller, outlives this object
    /// @throws HostError when the server lacks the extension
    explicit UserInput (const XConnection& to);
    ~UserInput ();

    UserInput (const UserInput&) = delete;
    UserInput& operator= (const UserInput&) = delete;

    void MoveTo (int x, int y) const;
    void Press (Button button) const;
    void Release (Button button) const;

    /// @param notches  above 0 away from the user ("up")
    void Wheel (int notches) const;

    void KeyDown (std::uint32_t keysym) const;
    void KeyUp (std::uint32_t keysym) const;
    void Key (std::uint32_t keysym) const; ///< down and up
    void Type (std::string_view latin) const;

private:
    void Send (std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) const;
    std::uint8_t KeyCode (std::uint32_t keysym) const;
    bool NeedsShift (std::uint32_t keysym) const;

    const XConnection& x;
    xcb_key_symbols_t* symbols;
};

} // namespace tessaly::host
