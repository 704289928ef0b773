#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

/// What a window gives the toolkit for the length of one call. Points are relative to the top left of the surface.
class ZEventImp
{
public:
    virtual ~ZEventImp () = default;

    virtual ZPoint GetMousePos () = 0;        ///< also records whether the pointer is over the surface
    virtual std::int32_t GetButtons () = 0;   ///< mask of Button, logical: a swapped primary button is the left one
    virtual std::int32_t GetModifiers () = 0; ///< mask of Modifier
    virtual std::uint32_t GetTime () = 0;     ///< milliseconds, monotonic until they wrap
    virtual std::uint32_t GetDoubleClickTime () = 0; ///< milliseconds
    virtual void SetDefaultCursor () = 0;            ///< the arrow
    virtual void SetCursor (std::int32_t kind) = 0;  ///< 1 the hand, any other the arrow
    virtual void ShowCursor () = 0;                  ///< counted, as HideCursor
    virtual void HideCursor () = 0;
    virtual void SetMousePos (ZPoint point) = 0; ///< nothing happens when the pointer is there already
    virtual ZPoint GetRawMousePos () = 0;        ///< as GetMousePos
    virtual void SetOverPane (bool over) = 0;
    virtual bool IsOverPane () = 0;
};

} // namespace tessaly
