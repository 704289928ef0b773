#pragma once

#include <cstdlib>

namespace tessaly::fuzz
{

/// Ends the run, so that the fuzzer keeps the bytes that led here.
inline void Demand (bool holds)
{
    if (!holds)
        std::abort ();
}

} // namespace tessaly::fuzz
