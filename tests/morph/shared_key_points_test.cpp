#include "shared_key_points.h"
#include <algorithm>
#include <atomic>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

namespace
{

KeyPointTable AllOf (int step)
{
    KeyPointTable table{};
    for (auto& row : table.rows)
        row.fill (static_cast<std::int16_t> (step));
    return table;
}

} // namespace

TEST_CASE ("SharedKeyPoints: a reader beside two writers gets whole sets, none of them older than the one before")
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
    std::thread up (write, 1);
    std::thread down (write, -1);
    bool whole = true;
    bool inOrder = true;
    int newestUp = 0;
    int newestDown = 0;
    int step = 0;
    const auto read = [&]
    {
        const auto table = points.Read ();
        step = table.rows[9][16];
        whole = whole && table.rows == AllOf (step).rows;
        inOrder = inOrder && (step >= 0 ? step >= newestUp : step <= newestDown);
        newestUp = std::max (newestUp, step);
        newestDown = std::min (newestDown, step);
    };
    while (writing > 0)
        read ();
    up.join ();
    down.join ();
    read ();
    CHECK (whole);
    CHECK (inOrder);
    CHECK (std::abs (step) == kSets);
}
