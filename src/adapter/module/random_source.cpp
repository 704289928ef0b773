// Only in a module that brings its own C++ library.

#include <cstdint>
#include <sys/random.h>

/// The C library has this function since 2.36, and the C++ library's archive refers to it for std::random_device, whether
/// anyone asks for one or not: without a function of this name here, systems with an older C library could not load the
/// module. Nobody in it calls this, and the name stays inside.
extern "C" std::uint32_t arc4random () noexcept
{
    std::uint32_t value = 0;
    while (getrandom (&value, sizeof value, 0) != sizeof value)
    {
    }
    return value;
}
