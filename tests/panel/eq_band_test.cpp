#include "eq_band.h"

#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("Each parameter of the equalizer belongs to one band")
{
    // ids 10 to 16: High F, High G, Mid F, Mid G, Mid Q, Low F, Low G
    constexpr std::int32_t kBands[] = { 3, 3, 2, 2, 2, 1, 1 };
    for (std::int32_t id = 0; id < 22; ++id)
        CHECK (BandOf (id) == (id >= 10 && id <= 16 ? kBands[id - 10] : kNoBand));
    CHECK (BandOf (kNoParameter) == kNoBand);
}
