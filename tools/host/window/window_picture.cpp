#include "window_picture.h"

#include "host_error.h"

#include <cstring>

namespace tessaly::host
{

WindowPicture ReadPicture (const XConnection& x, xcb_window_t window, int left, int top, int width, int height)
{
    const auto cookie = xcb_get_image (x.Get (), XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t> (left),
                                       static_cast<std::int16_t> (top), static_cast<std::uint16_t> (width),
                                       static_cast<std::uint16_t> (height), ~0U);
    const ReplyPtr<xcb_get_image_reply_t> reply (xcb_get_image_reply (x.Get (), cookie, nullptr));
    WindowPicture picture{ width, height, {} };
    picture.pixels.resize (static_cast<std::size_t> (width) * static_cast<std::size_t> (height));
    const auto bytes = picture.pixels.size () * sizeof (std::uint32_t);
    if (!reply || static_cast<std::size_t> (xcb_get_image_data_length (reply.get ())) != bytes)
        throw HostError ("the X server gives no picture of the window");
    std::memcpy (picture.pixels.data (), xcb_get_image_data (reply.get ()), bytes);
    for (std::uint32_t& pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    return picture;
}

WindowPicture ReadPicture (const XConnection& x, xcb_window_t window)
{
    const ReplyPtr<xcb_get_geometry_reply_t> size (
        xcb_get_geometry_reply (x.Get (), xcb_get_geometry (x.Get (), window), nullptr));
    if (!size)
        throw HostError ("there is no such window");
    return ReadPicture (x, window, 0, 0, size->width, size->height);
}

} // namespace tessaly::host
