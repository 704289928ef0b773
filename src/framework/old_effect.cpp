#include "old_effect.h"

#include <utility>

namespace tessaly
{

void ZOldEffect::SetMeter (std::int32_t index, float value)
{
    if (vuBuffer != nullptr)
        vuBuffer->Write (index, value, 0);
}

void ZOldEffect::SetMeterDirect (std::int32_t index, float value)
{
    if (vuBuffer != nullptr)
        vuBuffer->SetDirect (index, value);
}

bool ZOldEffect::PostEvent (std::int32_t number, void* data)
{
    return NotifyEditor (kCodeFirstOfEffect + number, data);
}

std::int32_t ZOldEffect::GetMeterArgument ()
{
    std::int32_t samples = 0;
    GetInfo (kCodeMeterArgument, &samples);
    return samples;
}

ZTimeInfo* ZOldEffect::GetTimeInfoRef ()
{
    GetTimeInfo (&timeInfo);
    return &timeInfo;
}

void ZOldEffect::AdoptMidiEvent (std::unique_ptr<ZMidiEvent> newBuffer)
{
    oldMidiEvent = nullptr; // before the old buffer goes
    ZEffect::AdoptMidiEvent (std::move (newBuffer));
    oldMidiEvent = dynamic_cast<ZOldMidiEvent*> (midiEvent.get ());
}

std::unique_ptr<ZMidiEvent> ZOldEffect::NewMidiEvent ()
{
    return std::make_unique<ZOldMidiEvent> ();
}

} // namespace tessaly
