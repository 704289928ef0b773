#include "vector_to_degree.h"

#include "truncate.h"
#include <cmath>
#include <numbers>

namespace tessaly
{

std::int32_t Wrap360 (std::int32_t degree)
{
    const auto rest = degree % 360;
    return rest < 0 ? rest + 360 : rest;
}

std::int32_t Wrap180 (std::int32_t degree)
{
    const auto wrapped = Wrap360 (degree);
    return wrapped < 180 ? wrapped : wrapped - 360;
}

void ZVectorToDegree::SetRange (std::int32_t begin, std::int32_t end)
{
    beginDegree = begin;
    endDegree = end;
}

std::int32_t ZVectorToDegree::GetZeroDegree () const
{
    auto opposite = (beginDegree + endDegree) / 2 + 180;
    if ((direction & kClockwise) != 0 && endDegree < beginDegree)
        opposite -= 180;
    if ((direction & kCounterclockwise) != 0 && beginDegree < endDegree)
        opposite -= 180;
    return Wrap360 (opposite);
}

std::int32_t ZVectorToDegree::GetAbsoluteDegree (ZPoint point) const
{
    const double right = point.x - center.x;
    const double up = center.y - point.y;
    // Rounded to single precision, the quarters and eighths of a turn come out as whole degrees or a little above, so
    // that the cut below keeps them.
    const auto angle = static_cast<float> (std::atan2 (up, right));
    return Wrap360 (270 - Truncate (angle * 360.0 / (2.0 * std::numbers::pi)));
}

std::int32_t ZVectorToDegree::ToRelative (std::int32_t degree) const
{
    if ((direction & kCounterclockwise) != 0)
        return Wrap360 (GetZeroDegree () + 360 - degree);
    return Wrap360 (degree - GetZeroDegree ());
}

std::int32_t ZVectorToDegree::FromRelative (std::int32_t degree) const
{
    if ((direction & kCounterclockwise) != 0)
        return Wrap360 (GetZeroDegree () + 360 - degree);
    return Wrap360 (GetZeroDegree () + degree);
}

} // namespace tessaly
