#pragma once

#include <atomic>

namespace tessaly
{

/// A value that one thread sets and another reads, each in one piece and in no order to any other value: a relaxed
/// atomic that reads and is assigned like a plain field. Read it once into a local where it is used more than once.
template <typename T>
class SharedValue
{
public:
    SharedValue () = default;
    SharedValue (T initial)
        : stored (initial)
    {
    }

    operator T () const { return stored.load (std::memory_order_relaxed); }
    SharedValue& operator= (T newValue)
    {
        stored.store (newValue, std::memory_order_relaxed);
        return *this;
    }
    T Exchange (T newValue) { return stored.exchange (newValue, std::memory_order_relaxed); } ///< @return the old one

private:
    static_assert (std::atomic<T>::is_always_lock_free, "the audio thread takes no lock");
    std::atomic<T> stored{};
};

} // namespace tessaly
