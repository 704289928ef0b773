#include "relaxed_cells.h"
#include "shared_value.h"
#include <atomic>
#include <cstdint>
#include <doctest/doctest.h>
#include <thread>
#include <vector>

using namespace tessaly;

namespace
{

// Two halves that belong together: a value in pieces would mix them.
constexpr std::uint64_t kLow = 0x1111111122222222;
constexpr std::uint64_t kHigh = 0x3333333344444444;

/// Reads until the writer is done. @return whether only whole values came
bool SeesWholeValues (auto write, auto read)
{
    std::atomic<bool> done = false;
    std::thread writer (
        [&]
        {
            for (int i = 0; i < 20000; ++i)
                write (i % 2 == 0 ? kHigh : kLow);
            done = true;
        });
    bool whole = true;
    do // reads once even if the writer is done before this thread gets on
    {
        const std::uint64_t value = read ();
        whole = whole && (value == kLow || value == kHigh);
    } while (!done);
    writer.join ();
    return whole;
}

} // namespace

TEST_CASE ("SharedValue: a reader sees whole values while another thread writes")
{
    SharedValue<std::uint64_t> shared = kLow;
    CHECK (SeesWholeValues ([&] (std::uint64_t value) { shared = value; }, [&] () -> std::uint64_t { return shared; }));
    CHECK (shared == kLow);
}

TEST_CASE ("Relaxed cells: a copy is made of whole values while another thread writes")
{
    std::vector<std::uint64_t> cells (3, kLow);
    std::vector<std::uint64_t> copy;
    CHECK (SeesWholeValues ([&] (std::uint64_t value) { StoreRelaxed (cells[2], value); },
                            [&]
                            {
                                CopyRelaxed (cells, copy);
                                return copy[2];
                            }));
    CHECK (copy.size () == 3);
}
