#pragma once

#include <cstdint>

namespace tessaly
{

/// Milliseconds of a steady clock, wrapping every 49 days: two times are compared by the sign of their difference. Any
/// thread.
using TickClock = std::uint32_t (*) ();

std::uint32_t SteadyTickMs ();

} // namespace tessaly
