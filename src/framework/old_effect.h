#pragma once

#include "effect.h"

namespace tessaly
{

/// The effect as engines in the older style see it: meters, events and transport by short calls. Threads as in ZEffect;
/// SetMeter, SetMeterDirect and GetTimeInfoRef belong to the engine's thread.
class ZOldEffect : public ZEffect
{
public:
    using ZEffect::ZEffect;

    virtual ZOldMidiEvent* GetOldMidiEvent () { return oldMidiEvent; } ///< null when there is none
    virtual void SetMeter (std::int32_t index, float value);           ///< seen by readers when the block has ended
    virtual void SetMeterDirect (std::int32_t index, float value);     ///< seen at once
    virtual bool PostEvent (std::int32_t number, void* data);          ///< event 10000 + number to the editor
    virtual std::int32_t GetMeterArgument ();
    virtual ZTimeInfo* GetTimeInfoRef (); ///< refreshed; never null

protected:
    void AdoptMidiEvent (std::unique_ptr<ZMidiEvent> newBuffer) override;
    std::unique_ptr<ZMidiEvent> NewMidiEvent () override;

private:
    ZOldMidiEvent* oldMidiEvent = nullptr; // `midiEvent`, as what it is; null when it is none
    ZTimeInfo timeInfo;
};

} // namespace tessaly
