#include "live_effect.h"

#include <array>
#include <cstddef>
#include <mutex>

namespace tessaly
{

namespace
{

constexpr std::size_t kLists = 1021; // a prime: effects lie at even distances

std::mutex mutex;
std::uint64_t lives = 0;                 ///< begun so far
std::array<LiveEffect*, kLists> lists{}; // not owned: each is a part of its processor

/// The one of the lists that an effect belongs to.
LiveEffect*& ListOf (const ZEffect* effect)
{
    constexpr std::uintptr_t kAlignment = 16;
    return lists[reinterpret_cast<std::uintptr_t> (effect) / kAlignment % kLists];
}

} // namespace

void LiveEffect::Add (const ZEffect* newEffect)
{
    Remove ();
    const std::scoped_lock lock (mutex);
    LiveEffect*& first = ListOf (newEffect);
    effect = newEffect;
    life = ++lives;
    next = first;
    first = this;
}

void LiveEffect::Remove ()
{
    if (effect == nullptr)
        return;
    const std::scoped_lock lock (mutex);
    LiveEffect** link = &ListOf (effect);
    while (*link != this)
        link = &(*link)->next;
    *link = next;
    effect = nullptr;
}

std::uint64_t LiveEffect::LifeOf (const ZEffect* effect)
{
    const std::scoped_lock lock (mutex);
    for (const LiveEffect* entry = ListOf (effect); entry != nullptr; entry = entry->next)
        if (entry->effect == effect)
            return entry->life;
    return 0;
}

} // namespace tessaly
