#pragma once

#include "bitmap_imp.h"
#include "geometry.h"
#include <memory>
#include <utility>

namespace tessaly
{

/// An image with a colour key. Belongs to the editor's cache, which loads each name once; frames of a strip are a
/// matter of source rectangles.
class ZBitmap
{
public:
    explicit ZBitmap (std::unique_ptr<ZBitmapImp> image) ///< not null
        : imp (std::move (image))
    {
    }

    ZBitmapImp& GetImp () const { return *imp; }
    void SetTransparentColor (ZColor color) ///< also turns keying on
    {
        transparentColor = color;
        transparentEnabled = true;
    }
    ZColor GetTransparentColor () const { return transparentColor; }
    void EnableTransparent (bool on) { transparentEnabled = on; }
    bool IsTransparent () const { return transparentEnabled; }
    const std::string& GetName () const { return imp->GetName (); }
    std::uint32_t GetWidth () const { return imp->GetWidth (); }
    std::uint32_t GetHeight () const { return imp->GetHeight (); }

private:
    std::unique_ptr<ZBitmapImp> imp;
    ZColor transparentColor = kDefaultColorKey;
    bool transparentEnabled = false;
};

} // namespace tessaly
