#include "shared_key_points.h"

namespace tessaly
{

SharedKeyPoints::SharedKeyPoints (const KeyPointSet& table)
{
    for (auto& cells : buffers)
        Fill (cells, table);
}

// Cells are stored with release and loaded with acquire: who reads a cell of a set to come also sees that the
// generation has been raised since, and so knows that its copy is spoilt.

void SharedKeyPoints::Fill (Cells& cells, const KeyPointSet& table)
{
    for (std::size_t row = 0; row < kKeyPointRows; ++row)
        for (std::size_t column = 0; column < kKeyPointColumns; ++column)
            cells[row][column].store (table.rows[row][column], std::memory_order_release);
}

KeyPointSet SharedKeyPoints::Copy (const Cells& cells)
{
    KeyPointSet table;
    for (std::size_t row = 0; row < kKeyPointRows; ++row)
        for (std::size_t column = 0; column < kKeyPointColumns; ++column)
            table.rows[row][column] = cells[row][column].load (std::memory_order_acquire);
    return table;
}

KeyPointSet SharedKeyPoints::Read () const
{
    for (;;)
    {
        const auto before = generation.load (std::memory_order_acquire);
        const auto table = Copy (buffers[before % 2]);
        if (generation.load (std::memory_order_relaxed) == before)
            return table;
    }
}

void SharedKeyPoints::Replace (const KeyPointSet& table)
{
    const std::lock_guard alone (writing);
    const auto next = generation.load (std::memory_order_relaxed) + 1;
    Fill (buffers[next % 2], table);
    generation.store (next, std::memory_order_release);
}

} // namespace tessaly
