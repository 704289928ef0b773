#include "memory_watch.h"

#include "fault.h"

#include <string>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes (); // g++ 12 comes without the header of it
#else
#include <malloc.h>
#endif

namespace tessaly::soak
{

namespace
{

/// Bytes that each load of the bundle may cost for good. Under a sanitizer the C library's list of functions to call
/// at exit grows by some five kB with each load; without one it does not.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t kKeptByLoader = 8 * 1024;
#else
constexpr std::size_t kKeptByLoader = 0;
#endif

} // namespace

std::size_t MemoryInUse ()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return __sanitizer_get_current_allocated_bytes ();
#else
    const auto info = mallinfo2 ();
    return info.uordblks + info.hblkhd;
#endif
}

void MemoryWatch::Compare (std::uint64_t loads)
{
    const std::size_t now = MemoryInUse ();
    if (atStart == 0)
        atStart = now;
    if (now > atStart + kMostGrowth + loads * kKeptByLoader)
        throw Fault ("with all instances ended, " + std::to_string (now) + " bytes are in use, " +
                     std::to_string (now - atStart) + " more than at the start");
}

} // namespace tessaly::soak
