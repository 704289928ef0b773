#pragma once

#include "shared_value.h"
#include <array>
#include <cstdint>
#include <vector>

namespace tessaly
{

/// One meter: a ring of time-stamped values and the held value that readers see. `time` is in samples from now; a value
/// is held as soon as its time has come. Nothing checks for overflow: Capacity writes without a Consume read as empty.
/// All on the audio thread but GetHeld, which any thread may call.
template <typename T, std::uint32_t Capacity>
class ZTemplateVuBufferInfo
{
public:
    void Set (const T* value) ///< holds the value and drops what waits
    {
        held = *value;
        readIndex = writeIndex = 0;
    }

    void Write (const T* value, std::int32_t offset)
    {
        ring[writeIndex] = { *value, blockOffset + offset };
        writeIndex = Next (writeIndex);
    }

    void GetHeld (T* out) const { *out = held; }

    /// The value at a time within the queue: the held one, or the newest queued one that is due by then.
    void GetAt (T* out, std::int32_t time) const
    {
        GetHeld (out);
        for (auto i = readIndex; i != writeIndex && ring[i].time <= time; i = Next (i))
            *out = ring[i].value;
    }

    void SetBlockOffset (std::int32_t samples) { blockOffset = samples; } ///< added to the offset of every write

    void Advance (std::int32_t samples)
    {
        for (auto i = readIndex; i != writeIndex; i = Next (i))
            ring[i].time -= samples;
    }

    void Consume () ///< holds every value that is due
    {
        for (; readIndex != writeIndex && ring[readIndex].time <= 0; readIndex = Next (readIndex))
            held = ring[readIndex].value;
    }

private:
    struct Record
    {
        T value{};
        std::int32_t time = 0;
    };

    static std::uint32_t Next (std::uint32_t index) { return (index + 1) % Capacity; }

    std::array<Record, Capacity> ring{};
    SharedValue<T> held;
    std::int32_t blockOffset = 0;
    std::uint32_t readIndex = 0;  // oldest queued record
    std::uint32_t writeIndex = 0; // next free record; equal to readIndex when the ring is empty
};

/// A row of meters, 0 to 1 each. A value written in a block is what Get reads when EndBlock has returned, unless
/// BeginBlock got an offset, which holds values back by that many samples so that a display lines up with a later
/// output. Allocates in the constructor only. Threads: one writer; Get from any.
class ZVuBuffer
{
public:
    ZVuBuffer (std::int32_t count, float initial); ///< a count below 0 counts as 0

    void Write (std::int32_t index, float value, std::int32_t offset); ///< bad index: nothing
    float Get (std::int32_t index) const;                              ///< bad index: 0.0
    void BeginBlock (std::int32_t offset);
    void EndBlock (std::int32_t samples);
    void Flush ();                                    ///< makes due values visible outside of a block
    void SetDirect (std::int32_t index, float value); ///< at once, dropping what waits; bad index: nothing
    void SetAll (float value);                        ///< SetDirect of every meter
    std::int32_t Count () const { return static_cast<std::int32_t> (meters.size ()); }

private:
    using Meter = ZTemplateVuBufferInfo<float, 256>;

    bool IsMeter (std::int32_t index) const { return index >= 0 && index < Count (); }

    std::vector<Meter> meters;
};

} // namespace tessaly
