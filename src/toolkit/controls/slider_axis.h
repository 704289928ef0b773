#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

enum SliderStyle : std::int32_t // bits; the first and the last decide
{
    kHorizontal = 1,
    kVertical = 2,
    kNormal = 4,
    kReversed = 8 // the value grows to the left or upwards
};

/// The axis along which a slider or toggle switch moves, out of its style.
class ZSliderAxis
{
public:
    /// Along the longer side, the maximum at the right or at the top.
    explicit ZSliderAxis (const ZRect& frame)
        : style (frame.Width () >= frame.Height () ? kHorizontal | kNormal : kVertical | kReversed)
    {
    }

    void SetStyle (std::int32_t bits) { style = bits; } ///< of SliderStyle
    std::int32_t GetStyle () const { return style; }
    bool IsHorizontal () const { return (style & kHorizontal) != 0; }
    bool IsReversed () const { return (style & kReversed) != 0; }

    std::int32_t Along (ZPoint point) const { return IsHorizontal () ? point.x : point.y; }
    std::int32_t Length (const ZRect& rect) const { return IsHorizontal () ? rect.Width () : rect.Height (); }
    std::int32_t Thickness (const ZRect& rect) const { return IsHorizontal () ? rect.Height () : rect.Width (); }
    ZPoint Offset (std::int32_t pixels) const { return IsHorizontal () ? ZPoint{ pixels, 0 } : ZPoint{ 0, pixels }; }

private:
    std::int32_t style;
};

} // namespace tessaly
