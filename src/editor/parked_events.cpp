#include "parked_events.h"

#include "effect_wrapper.h"

namespace tessaly
{

namespace
{

constexpr auto kRelaxed = std::memory_order_relaxed;

bool IsSent (std::int32_t code)
{
    return code >= kCodeCore && code <= kCodeNumInputs && code != kCodeTimeInfo;
}

bool NeedsData (std::int32_t code)
{
    return code == kCodeSampleRate || code == kCodeBlockSize || code >= kCodeBypass;
}

template <typename T>
void Keep (std::atomic<T>& slot, const void* data)
{
    slot.store (*static_cast<const T*> (data), kRelaxed);
}

template <typename T>
void KeepObject (std::atomic<T*>& slot, void* object)
{
    slot.store (static_cast<T*> (object), kRelaxed);
}

} // namespace

bool ParkedEvents::Park (std::int32_t code, void* data)
{
    if (code >= kCodeFirstOfEffect && code < kCodeFirstOfEffect + kOwnCodes)
    {
        ownCodes.fetch_or (1u << (code - kCodeFirstOfEffect), std::memory_order_release);
        return true;
    }
    if (!IsSent (code) || (NeedsData (code) && data == nullptr))
        return false;
    switch (code)
    {
    case kCodeCore:
        KeepObject (core, data);
        break;
    case kCodeStorage:
        KeepObject (storage, data);
        break;
    case kCodeVuBuffer:
        KeepObject (meters, data);
        break;
    case kCodeMidiEvent:
        KeepObject (midi, data);
        break;
    case kCodeSampleRate:
        Keep (sampleRate, data);
        break;
    case kCodeBlockSize:
        Keep (blockSize, data);
        break;
    case kCodeBypass:
        Keep (bypass, data);
        break;
    case kCodeMeterArgument:
        Keep (meterArgument, data);
        break;
    case kCodePostHost:
        ParkParameter (*static_cast<const std::int32_t*> (data));
        break;
    case kCodeNumInputs:
        Keep (channels, data);
        break;
    default:
        break; // a hook: the code says it all
    }
    codes.fetch_or (1u << code, std::memory_order_release);
    return true;
}

void ParkedEvents::ParkParameter (std::int32_t id)
{
    if (id >= 0 && id < EffectEvents::kParameters)
        parameters[static_cast<std::size_t> (id / 64)].fetch_or (std::uint64_t{ 1 } << (id % 64),
                                                                 std::memory_order_release);
    else if (id >= -1)
        everyParameter.store (true, std::memory_order_release);
}

EffectEvents ParkedEvents::Take ()
{
    EffectEvents taken;
    taken.ownCodes = ownCodes.exchange (0, std::memory_order_acquire);
    taken.codes = codes.exchange (0, std::memory_order_acquire);
    if (taken.codes == 0)
        return taken;
    taken.core = core.load (kRelaxed);
    taken.storage = storage.load (kRelaxed);
    taken.meters = meters.load (kRelaxed);
    taken.midi = midi.load (kRelaxed);
    taken.sampleRate = sampleRate.load (kRelaxed);
    taken.blockSize = blockSize.load (kRelaxed);
    taken.bypass = bypass.load (kRelaxed);
    taken.meterArgument = meterArgument.load (kRelaxed);
    taken.channels = channels.load (kRelaxed);
    if (taken.Has (kCodePostHost)) // these may be newer than the code: with them comes what the storage then held
    {
        taken.everyParameter = everyParameter.exchange (false, std::memory_order_acquire);
        for (std::size_t word = 0; word < parameters.size (); ++word)
            taken.parameters[word] = parameters[word].exchange (0, std::memory_order_acquire);
    }
    return taken;
}

} // namespace tessaly
