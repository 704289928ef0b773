#include "shared_key_points.h"
#include <atomic>
#include <cstdlib>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

namespace
{

KeyPointSet AllOf (int step)
{
    KeyPointSet table{};
    for (auto& row : table.rows)
        row.fill (static_cast<std::int16_t> (step));
    return table;
}

} // namespace

TEST_CASE ("SharedKeyPoints: a reader concurrent with two writers gets whole sets")
{
    constexpr int kSets = 5000;
    SharedKeyPoints points (AllOf (0));
    std::atomic<int> writing = 2;
    const auto write = [&] (int sign) // one writer up from 0, the other one down
    {
        for (int i = 1; i <= kSets; ++i)
            points.Replace (AllOf (sign * i));
        --writing;
    };
    const std::jthread up (write, 1);
    const std::jthread down (write, -1);
    bool whole = true;
    int step = 0;
    for (bool atEnd = false; !atEnd;)
    {
        atEnd = writing == 0;
        const auto table = points.Read ();
        step = table.rows[9][16];
        whole = whole && table.rows == AllOf (step).rows;
    }
    CHECK (whole);
    CHECK (std::abs (step) == kSets);
}
