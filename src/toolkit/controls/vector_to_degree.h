#pragma once

#include "geometry.h"
#include <cstdint>

namespace tessaly
{

enum Direction : std::int32_t // bits
{
    kClockwise = 4,
    kCounterclockwise = 8
};

std::int32_t Wrap360 (std::int32_t degree); ///< into 0 to 359
std::int32_t Wrap180 (std::int32_t degree); ///< into -180 to 179

/// Turns points around a centre into whole degrees of a sweep. Absolute degrees grow clockwise from straight below the
/// centre: 90 left, 180 above, 270 right. Relative ones grow in the sweep's direction from the point opposite its
/// middle, so that its gap lies around 0 and no jump from 359 to 0 within it.
class ZVectorToDegree
{
public:
    void SetDirection (std::int32_t bits) { direction = bits; }
    std::int32_t GetDirection () const { return direction; }
    void SetCenter (ZPoint point) { center = point; } ///< in the coordinates of the points to come
    ZPoint GetCenter () const { return center; }
    void SetRange (std::int32_t begin, std::int32_t end); ///< absolute
    std::int32_t GetBegin () const { return beginDegree; }
    std::int32_t GetEnd () const { return endDegree; }

    std::int32_t GetZeroDegree () const; ///< absolute place of the relative 0
    std::int32_t GetAbsoluteDegree (ZPoint point) const;
    std::int32_t ToRelative (std::int32_t degree) const;
    std::int32_t FromRelative (std::int32_t degree) const;
    std::int32_t GetRelativeBegin () const { return ToRelative (beginDegree); }
    std::int32_t GetRelativeEnd () const { return ToRelative (endDegree); }
    std::int32_t GetDegree (ZPoint point) const { return ToRelative (GetAbsoluteDegree (point)); } ///< relative

private:
    std::int32_t beginDegree = 45; // lower left
    std::int32_t endDegree = 315;  // lower right
    std::int32_t direction = kClockwise;
    ZPoint center;
};

} // namespace tessaly
