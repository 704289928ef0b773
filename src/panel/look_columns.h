#pragma once

#include "draw_anim.h"
#include <cstdint>

namespace tessaly
{

/// Looks of one strip that stand side by side in its image: which of them shows, in widths of a frame from the left.
struct LookColumns
{
    std::int32_t normal = 0;
    std::int32_t bright = 0; // while the user touches the parameter

    std::int32_t Of (bool isBright) const { return isBright ? bright : normal; }
};

inline void ShowColumn (ZDrawAnim& strip, std::int32_t column, std::int32_t frameWidth)
{
    auto record = strip.GetRecordActive ();
    record.source.x = column * frameWidth;
    strip.SetRecordActive (record);
}

} // namespace tessaly
