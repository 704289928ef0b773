#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace tessaly::soak
{

/// Every random choice of a run, in one sequence that the seed decides. Spelled out rather than taken from the
/// library's distributions, so that a seed means the same run with any library. One thread.
class Chance
{
public:
    explicit Chance (std::uint64_t seed)
        : generator (seed)
    {
    }

    /// @param end  above 0  @return 0 to end - 1
    std::size_t Below (std::size_t end) { return static_cast<std::size_t> (generator () % end); }

    bool OneIn (std::size_t times) { return Below (times) == 0; }

    /// @return 0 up to but without 1
    double Unit () { return static_cast<double> (generator () >> 11) * 0x1p-53; }

    double Between (double low, double high) { return low + (high - low) * Unit (); }

    template <typename List>
    const auto& Pick (const List& list)
    {
        return list[Below (list.size ())];
    }

private:
    std::mt19937_64 generator;
};

} // namespace tessaly::soak
