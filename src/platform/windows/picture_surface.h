#pragma once

#include "win_gdiplus_offscreen_canvas_imp.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// What is drawn on where there is no window. Brings GDI+ up for as long as it is there.
class PictureSurface final : private GdiplusSession, public ZWinGDIPlusOffscreenCanvasImp
{
public:
    using ZWinGDIPlusOffscreenCanvasImp::ZWinGDIPlusOffscreenCanvasImp;
};

/// Row by row, 0xAARRGGBB with premultiplied alpha.
std::vector<std::uint32_t> PixelsOf (const PictureSurface& surface);

/// A PNG file's bytes; none when it can't be written.
std::vector<std::byte> PngOf (const PictureSurface& surface);

} // namespace tessaly
