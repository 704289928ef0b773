#pragma once

#include "bitmap_imp.h"
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tessaly
{

/// An image of the panel, for ZBitmap. Images know their size at once and are unpacked when they are drawn, frame by
/// frame; on Windows GDI+ unpacks them, and whole. All of them that live in the process share their pixels, which are
/// freed with the last one. Any thread but the audio thread; an image itself belongs to one thread.
///
/// @param name   with its ending, in any case: "tsly_knb.png"
/// @param scale  pixels of the surface a coordinate; above 1 the images have two
/// @return       never null; without such an image its size is 0
std::unique_ptr<ZBitmapImp> CreateSkinBitmap (std::string_view name, double scale);

/// Bytes of pixels that are unpacked now, in all of the process.
std::size_t SkinBytesHeld ();

} // namespace tessaly
