#include "published_coefs.h"

namespace tessaly
{

void PublishedCoefs::write (const BiquadCoefs& coefs)
{
    std::uint32_t even = 0;
    do
        even = sequence.load (std::memory_order_relaxed) & ~1U;
    while (!sequence.compare_exchange_weak (even, even + 1, std::memory_order_acquire, std::memory_order_relaxed));

    values[0].store (coefs.c0, std::memory_order_release);
    values[1].store (coefs.c1, std::memory_order_release);
    values[2].store (coefs.c2, std::memory_order_release);
    values[3].store (coefs.c3, std::memory_order_release);
    values[4].store (coefs.c4, std::memory_order_release);
    sequence.store (even + 2, std::memory_order_release);
}

bool PublishedCoefs::tryRead (BiquadCoefs& coefs, std::uint32_t& readVersion) const
{
    const std::uint32_t before = version ();
    const BiquadCoefs copy{ values[0].load (std::memory_order_acquire), values[1].load (std::memory_order_acquire),
                            values[2].load (std::memory_order_acquire), values[3].load (std::memory_order_acquire),
                            values[4].load (std::memory_order_acquire) };
    if (before % 2 != 0 || sequence.load (std::memory_order_relaxed) != before)
        return false;
    coefs = copy;
    readVersion = before;
    return true;
}

BiquadCoefs PublishedCoefs::read () const
{
    BiquadCoefs coefs;
    std::uint32_t readVersion = kNoVersion;
    while (!tryRead (coefs, readVersion))
    {
    }
    return coefs;
}

} // namespace tessaly
