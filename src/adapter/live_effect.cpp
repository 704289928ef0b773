#include "live_effect.h"

#include <mutex>

namespace tessaly
{

namespace
{

std::mutex mutex;
LiveEffect* first = nullptr; // not owned: each is a part of its processor

} // namespace

void LiveEffect::Add (const ZEffect* newEffect)
{
    Remove ();
    const std::scoped_lock lock (mutex);
    effect = newEffect;
    next = first;
    first = this;
}

void LiveEffect::Remove ()
{
    if (effect == nullptr)
        return;
    const std::scoped_lock lock (mutex);
    LiveEffect** link = &first;
    while (*link != this)
        link = &(*link)->next;
    *link = next;
    effect = nullptr;
}

bool LiveEffect::Contains (const ZEffect* effect)
{
    const std::scoped_lock lock (mutex);
    for (const LiveEffect* entry = first; entry != nullptr; entry = entry->next)
        if (entry->effect == effect)
            return true;
    return false;
}

} // namespace tessaly
