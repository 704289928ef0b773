#pragma once

#include <cstdint>

namespace tessaly
{

/// A point in whole pixels, y growing downwards.
struct ZPoint
{
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator== (const ZPoint&, const ZPoint&) = default;
    friend ZPoint operator+ (ZPoint a, ZPoint b) { return { a.x + b.x, a.y + b.y }; }
    friend ZPoint operator- (ZPoint a, ZPoint b) { return { a.x - b.x, a.y - b.y }; }
};

/// A point between whole coordinates.
struct ZPointF
{
    double x = 0.0;
    double y = 0.0;

    friend bool operator== (const ZPointF&, const ZPointF&) = default;
};

/// A rectangle in whole pixels; right and bottom are exclusive. Where a rectangle is optional, the all-zero one means
/// that none is set.
struct ZRect
{
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    std::int32_t Width () const { return right - left; }
    std::int32_t Height () const { return bottom - top; }
    ZPoint TopLeft () const { return { left, top }; }
    ZPoint BottomRight () const { return { right, bottom }; }
    bool IsZero () const { return *this == ZRect{}; }
    bool IsEmpty () const { return right <= left || bottom <= top; }
    bool Contains (ZPoint p) const { return left <= p.x && p.x < right && top <= p.y && p.y < bottom; }
    bool Overlaps (const ZRect& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }

    friend bool operator== (const ZRect&, const ZRect&) = default;
    friend ZRect operator+ (const ZRect& r, ZPoint p)
    {
        return { r.left + p.x, r.top + p.y, r.right + p.x, r.bottom + p.y };
    }
    friend ZRect operator- (const ZRect& r, ZPoint p) { return r + (ZPoint{} - p); }
};

/// Red, green and blue. Alpha travels beside it as a byte, 255 opaque.
struct ZColor
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator== (const ZColor&, const ZColor&) = default;
};

inline constexpr ZColor kDefaultColorKey{ 255, 0, 255 }; // of a new canvas and a new bitmap: magenta

} // namespace tessaly
