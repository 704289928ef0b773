#pragma once

#include "biquad.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace tessaly
{

/// A set of coefficients that any thread writes and any thread reads, always whole: a sequence lock. `sequence` is odd
/// while a writer is at work and rises by two for each set, so that an even number names one set.
///
/// A writer waits for another writer only; the audio thread uses `tryRead`, which never waits. Each coefficient is
/// stored with release and loaded with acquire: a reader that met a new one is sure to see the sequence move.
class PublishedCoefs
{
public:
    /// A number that no set ever has.
    static constexpr std::uint32_t kNoVersion = 1;

    /// Replaces the set. Any thread.
    void write (const BiquadCoefs& coefs);

    /// Names the present set; odd while the next one is being written.
    std::uint32_t version () const { return sequence.load (std::memory_order_acquire); }

    /// Copies the present set and its version, or returns false and leaves both if a write came in between.
    bool tryRead (BiquadCoefs& coefs, std::uint32_t& readVersion) const;

    /// The present set; tries until no write comes in between. Not for the audio thread.
    BiquadCoefs read () const;

private:
    std::array<std::atomic<double>, 5> values{};
    std::atomic<std::uint32_t> sequence{ 0 };
};

} // namespace tessaly
