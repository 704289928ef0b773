#include "live_effect.h"

#include "memory_stream.h"
#include "result.h"
#include <cstdint>
#include <mutex>
#include <vector>

namespace tessaly
{

namespace
{

std::mutex mutex;            // needs no destruction, like the list
LiveEffect* first = nullptr; // not owned: the halves of its instance

} // namespace

LiveEffect::~LiveEffect ()
{
    Unlist ();
    if (effect != nullptr)
        effect->Shutdown ();
}

void LiveEffect::List ()
{
    const std::scoped_lock lock (mutex);
    next = first;
    first = this;
    listed = true;
}

void LiveEffect::Unlist ()
{
    const std::scoped_lock lock (mutex);
    if (!listed)
        return;
    LiveEffect** link = &first;
    while (*link != this)
        link = &(*link)->next;
    *link = next;
    listed = false;
}

std::shared_ptr<LiveEffect> LiveEffect::Find (const ZEffect* effect)
{
    const std::scoped_lock lock (mutex);
    for (LiveEffect* life = first; life != nullptr; life = life->next)
        if (life->effect.get () == effect)
            return life->weak_from_this ().lock ();
    return nullptr;
}

ardour::LatePoints::Exclusion LiveEffect::ExcludeLatePoints () const
{
    return latePoints ? latePoints->Exclude () : ardour::LatePoints::Exclusion ();
}

void LiveEffect::TakeStateOf (LiveEffect& other)
{
    std::vector<std::uint8_t> bytes (static_cast<std::size_t> (other.effect->GetStateSize ()));
    const auto size = static_cast<std::int32_t> (bytes.size ());
    {
        const auto alone = other.ExcludeLatePoints ();
        ZMemoryStream written (bytes.data (), size);
        other.effect->WriteState (&written);
    }
    const auto alone = ExcludeLatePoints ();
    if (latePoints)
        latePoints->Forget ();
    ZMemoryStream stored (bytes.data (), size, size);
    effect->SetLoading (true);
    effect->ReadState (&stored);
    effect->SetLoading (false);
    MarkValuesMoved ();
}

void LiveEffect::End ()
{
    Unlist ();
    ended.store (true, std::memory_order_release);
    for (const auto code : { kCodeCore, kCodeStorage, kCodeVuBuffer })
        NotifyEditor (code, nullptr);
    editor.Set (nullptr);
    host.Set (nullptr);
}

// Not by way of the processor, which would only ask back: a morph tells of seventeen parameters at once, mostly to nobody.

bool LiveEffect::NotifyEditor (std::int32_t code, void* data)
{
    return editor.Call ([&] (ZEffectListener& listener) { return listener.OnEffectEvent (code, data); });
}

bool LiveEffect::NotifyEditor2 (std::int32_t code, void* data)
{
    return editor.Call ([&] (ZEffectListener& listener) { return listener.OnEffectEvent2 (code, data); });
}

void LiveEffect::GetTimeInfo (ZTimeInfo* info)
{
    host.Call (
        [info] (ZEffectWrapper& processor)
        {
            processor.GetTimeInfo (info);
            return true;
        });
}

std::int32_t LiveEffect::GetHostName (char* buffer)
{
    std::int32_t result = kFailed;
    host.Call (
        [&] (ZEffectWrapper& processor)
        {
            result = processor.GetHostName (buffer);
            return true;
        });
    return result;
}

} // namespace tessaly
