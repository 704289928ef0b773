#include "tick_clock.h"

#include <chrono>

namespace tessaly
{

std::uint32_t SteadyTickMs ()
{
    const auto now = std::chrono::steady_clock::now ().time_since_epoch ();
    return static_cast<std::uint32_t> (std::chrono::duration_cast<std::chrono::milliseconds> (now).count ());
}

} // namespace tessaly
