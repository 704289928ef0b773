#include "vu_buffer.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("ZVuBuffer: a value is seen when its block has ended, a later one when it is due, a direct one at once")
{
    ZVuBuffer meters (1, 0.25f);
    meters.BeginBlock (0);
    meters.Write (0, 1.5f, 0);
    CHECK (meters.Get (0) == 0.25f);
    meters.EndBlock (1); // however short the block
    CHECK (meters.Get (0) == 1.5f);

    meters.BeginBlock (100);
    meters.Write (0, 0.5f, 0);
    meters.EndBlock (64);
    CHECK (meters.Get (0) == 1.5f);
    meters.EndBlock (64);
    CHECK (meters.Get (0) == 0.5f);

    meters.Write (0, 1.0f, 0);
    meters.SetDirect (0, 0.75f); // drops what waits
    meters.EndBlock (200);
    CHECK (meters.Get (0) == 0.75f);
    for (const auto bad : { -1, 1 }) // no such meter
    {
        meters.Write (bad, 0.25f, 0);
        meters.SetDirect (bad, 0.25f);
        CHECK (meters.Get (bad) == 0.0f);
    }
}
