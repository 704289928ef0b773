#pragma once

#include <cstdint>

namespace tessaly::soak
{

/// What a run has done so far. With audio on a second thread, that one counts blocks and samples and nothing else.
struct Tally
{
    std::uint64_t steps = 0;
    std::uint64_t loads = 0; ///< of the bundle
    std::uint64_t instances = 0;
    std::uint64_t blocks = 0;
    std::uint64_t samples = 0;
    std::uint64_t edits = 0;  ///< values set through the controller, and those it reported back
    std::uint64_t states = 0; ///< loaded, damaged ones too
};

} // namespace tessaly::soak
