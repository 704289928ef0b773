#pragma once

#include <atomic>
#include <cstddef>
#include <vector>

namespace tessaly
{

/// Access to plain vector elements that audio thread, host and editor share: single loads and stores, no order between
/// them. A reader sees the old or the new value, never a mixture. The vector itself keeps its size meanwhile.
template <typename T>
T LoadRelaxed (const T& cell)
{
    // atomic_ref of a const type is not to be had before C++26; no constant object is ever loaded this way
    return std::atomic_ref<T> (const_cast<T&> (cell)).load (std::memory_order_relaxed);
}

template <typename T>
void StoreRelaxed (T& cell, T value)
{
    std::atomic_ref<T> (cell).store (value, std::memory_order_relaxed);
}

/// Copies cell by cell. `to` changes its size only when the sizes differ, that is during set-up.
template <typename T>
void CopyRelaxed (const std::vector<T>& from, std::vector<T>& to)
{
    if (to.size () != from.size ())
        to.resize (from.size ());
    for (std::size_t i = 0; i < from.size (); ++i)
        StoreRelaxed (to[i], LoadRelaxed (from[i]));
}

} // namespace tessaly
