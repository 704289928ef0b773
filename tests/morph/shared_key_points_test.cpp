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

TEST_CASE ("SharedKeyPoints: two writers at once leave a whole set, and readers see nothing else")
{
    SharedKeyPoints points (AllOf (0));
    std::atomic<int> running = 2;
    const auto write = [&] (std::int16_t step)
    {
        for (int i = 0; i < 2000; ++i)
            points.Replace (AllOf (step));
        --running;
    };
    std::thread first (write, std::int16_t{ 1 });
    std::thread second (write, std::int16_t{ 2 });
    bool whole = true;
    while (running > 0)
    {
        const auto table = points.Read ();
        whole = whole && table.rows == AllOf (table.rows[0][0]).rows;
    }
    first.join ();
    second.join ();
    const auto last = points.Read ();
    CHECK (whole);
    CHECK (last.rows == AllOf (last.rows[0][0]).rows);
}
