#pragma once

#include "bitmap_control.h"
#include "picture.h"
#include <memory>

namespace tessaly
{

/// A still picture.
class ZBitmapPicture : public ZBitmapControl<ZPicture>
{
public:
    using ZBitmapControl::ZBitmapControl;
};

/// Makes one in one step. @param source  top left of the picture in the bitmap, which is borrowed
inline std::unique_ptr<ZBitmapPicture> CreateBitmapPicture (ZPaneOwner* owner, const ZRect& frame, std::int32_t id,
                                                            ZBitmap* bitmap, ZPoint source)
{
    auto picture = std::make_unique<ZBitmapPicture> (owner, frame, id);
    picture->SetBitmapActive (bitmap, source);
    return picture;
}

} // namespace tessaly
