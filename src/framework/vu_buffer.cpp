#include "vu_buffer.h"

#include <algorithm>

namespace tessaly
{

ZVuBuffer::ZVuBuffer (std::int32_t count, float initial)
    : meters (static_cast<std::size_t> (std::max (count, 0)))
{
    SetAll (initial);
}

void ZVuBuffer::Write (std::int32_t index, float value, std::int32_t offset)
{
    if (IsMeter (index))
        meters[static_cast<std::size_t> (index)].Write (&value, offset);
}

float ZVuBuffer::Get (std::int32_t index) const
{
    float value = 0.0f;
    if (IsMeter (index))
        meters[static_cast<std::size_t> (index)].GetHeld (&value);
    return value;
}

void ZVuBuffer::BeginBlock (std::int32_t offset)
{
    for (auto& meter : meters)
        meter.SetBlockOffset (offset);
}

void ZVuBuffer::EndBlock (std::int32_t samples)
{
    for (auto& meter : meters)
    {
        meter.Advance (samples);
        meter.Consume ();
    }
}

void ZVuBuffer::Flush ()
{
    for (auto& meter : meters)
        meter.Consume ();
}

void ZVuBuffer::SetDirect (std::int32_t index, float value)
{
    if (IsMeter (index))
        meters[static_cast<std::size_t> (index)].Set (&value);
}

void ZVuBuffer::SetAll (float value)
{
    for (auto& meter : meters)
        meter.Set (&value);
}

} // namespace tessaly
