#pragma once

#include "anim_control.h"
#include "bitmap_control.h"
#include "control.h"
#include <memory>

namespace tessaly
{

/// A display that takes no mouse: what lies under it is found instead. Its value chooses what it shows.
class ZPicture : public ZControl
{
public:
    ZPicture (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
        : ZControl (paneOwner, rect, controlId)
    {
        ZPane::SetMouseEnabled (false);
    }
};

/// A picture out of several, chosen by the position of its value. CreateAnim makes one in one step.
class ZAnimPicture : public ZPositionAnimControl<ZPicture>
{
public:
    using ZPositionAnimControl::ZPositionAnimControl;
};

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
