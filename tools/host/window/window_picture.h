#pragma once

#include "x_connection.h"

namespace tessaly::host
{

/// The pixels that a window shows, with its child windows, as 0x00RRGGBB.
struct WindowPicture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; ///< width x height, rows from the top

    std::uint32_t At (int x, int y) const
    {
        return pixels[static_cast<std::size_t> (y) * static_cast<std::size_t> (width) + static_cast<std::size_t> (x)];
    }
    bool operator== (const WindowPicture&) const = default;
};

/// Reads a part of a window, which must lie on the screen and be covered by no other.
/// @throws HostError when the server refuses, or has other pixels than 24 bits in 32
WindowPicture ReadPicture (const XConnection& x, xcb_window_t window, int left, int top, int width, int height);

/// Reads the whole window.
WindowPicture ReadPicture (const XConnection& x, xcb_window_t window);

} // namespace tessaly::host
