#pragma once

#include <cstddef>
#include <cstdint>

namespace tessaly::soak
{

/// @return the bytes that this process has from its allocator and has not given back. Under a sanitizer to the byte;
/// otherwise with what the allocator keeps at hand for the next call.
std::size_t MemoryInUse ();

/// Compares the memory in use at moments that should be alike: all instances ended, the bundle unloaded.
class MemoryWatch
{
public:
    /// The first call takes the measure, so that what is made once for all counts as there.
    /// @param loads  of the bundle so far: under a sanitizer each one costs something for good
    /// @throws Fault when it has grown by more than kMostGrowth since
    void Compare (std::uint64_t loads);

    static constexpr std::size_t kMostGrowth = 256 * 1024; ///< bytes; the allocator's own store alone may be most of it

private:
    std::size_t atStart = 0;
};

} // namespace tessaly::soak
