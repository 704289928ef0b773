#include "shared_key_points.h"
#include <atomic>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

namespace
{

KeyPointTable AllOf (std::int16_t step)
{
    KeyPointTable table{};
    for (auto& row : table.rows)
        row.fill (step);
    return table;
}

} // namespace

TEST_CASE ("SharedKeyPoints: a reader beside a writer never gets rows of two sets, nor an older set than before")
{
    SharedKeyPoints points (AllOf (0));
    std::thread writer (
        [&points]
        {
            for (std::int16_t step = 1; step <= 5000; ++step)
                points.Replace (AllOf (step));
        });
    std::int16_t newest = 0;
    bool whole = true;
    bool inOrder = true;
    while (newest < 5000)
    {
        const auto table = points.Read ();
        const auto step = table.rows[9][16];
        whole = whole && table.rows == AllOf (step).rows;
        inOrder = inOrder && step >= newest;
        newest = step;
    }
    writer.join (); // the loop has ended, so the last set has come through
    CHECK (whole);
    CHECK (inOrder);
}
