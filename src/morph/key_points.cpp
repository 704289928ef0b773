#include "key_points.h"

#include <algorithm>

namespace tessaly
{

// "01 Basic". Columns are the parameters 1 to 17.
// clang-format off
constinit const KeyPointSet builtInKeyPoints { { {
    { { 184, 159,  30,   1, 100,  70,  30, 133,  12, 112, 180,  72, 180,  12,  32, 180, 180 } },
    { { 165, 170,  45,   1, 100,  70,  50, 205,  12, 116, 151,  53, 210,  14,  30, 152, 180 } },
    { { 147, 181,  60,   1, 100,  94,  71, 260,  12, 113, 100,  71, 269,  16,  28,  89, 180 } },
    { { 181, 135,  73,   1, 100,  64,  69, 135,  12, 118, 174,  67, 187,  16,  30, 163, 180 } },
    { { 215,  90,  86,   1,  90,  56,  68,  43,  12, 112, 260,  68, 105,  19,  31, 245, 180 } },
    { { 200,  83,  73,   0, 100,  64,  50, 138,  12, 113, 234,  80, 158,  16,  32, 250, 180 } },
    { { 185,  76,  60,   0, 100,  80,  32, 234,  12, 115, 180,  96, 160,  16,  36, 252, 180 } },
    { { 135, 118,  88,   1, 100,  70,  75, 254,  12, 116, 230, 107, 191,  16,  30, 208, 180 } },
    { {  95, 126,  96,   2, 100,  64, 119, 274,  12, 118, 285, 111, 210,  16,  11, 144, 180 } },
    { {  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1,  -1 } },
} } };
// clang-format on

bool KeyPointSet::HasKeyPoint (std::uint32_t row) const
{
    return row < rows.size () && std::find (rows[row].begin (), rows[row].end (), kEmptyCell) == rows[row].end ();
}

std::int32_t KeyPointSet::KeyPointStep (std::uint32_t row, std::uint32_t column) const
{
    return row < kKeyPointRows && column < kKeyPointColumns ? rows[row][column] : kEmptyCell;
}

} // namespace tessaly
