#include "shared_key_points.h"

#include <cstring>

namespace tessaly
{

SharedKeyPoints::SharedKeyPoints (const KeyPointSet& set)
{
    for (auto& cells : buffers)
        Fill (cells, set);
}

// Cells are stored with release and loaded with acquire: who reads a cell of a set to come also sees that the
// generation has been raised since, and reads again.

void SharedKeyPoints::Fill (Cells& cells, const KeyPointSet& set)
{
    std::array<std::uint64_t, kWords> words{};
    std::memcpy (words.data (), &set.rows, sizeof set.rows);
    for (std::size_t i = 0; i < kWords; ++i)
        cells[i].store (words[i], std::memory_order_release);
}

KeyPointSet SharedKeyPoints::Copy (const Cells& cells)
{
    std::array<std::uint64_t, kWords> words;
    for (std::size_t i = 0; i < kWords; ++i)
        words[i] = cells[i].load (std::memory_order_acquire);
    KeyPointSet set;
    std::memcpy (&set.rows, words.data (), sizeof set.rows);
    return set;
}

KeyPointSet SharedKeyPoints::Read () const
{
    for (;;)
    {
        const auto before = generation.load (std::memory_order_acquire);
        const auto set = Copy (buffers[before % 2]);
        if (generation.load (std::memory_order_relaxed) == before)
            return set;
    }
}

void SharedKeyPoints::Replace (const KeyPointSet& set)
{
    const std::lock_guard alone (writing);
    const auto next = generation.load (std::memory_order_relaxed) + 1;
    Fill (buffers[next % 2], set);
    generation.store (next, std::memory_order_release);
}

} // namespace tessaly
