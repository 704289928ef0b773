#pragma once

#include "time_info.h"
#include <cstdint>

namespace tessaly
{

/// One number space for what an effect tells its editor (NotifyEditor) and what it can be asked for (GetInfo).
/// The comment gives what `data` or `out` points to; an event's data is good during the call only.
enum EffectCode : std::int32_t
{
    kCodeEffect = 0,           // ZEffect*; asked only
    kCodeCore = 1,             // ZPluginCore*; event: the core itself, adopted
    kCodeStorage = 2,          // ZParameterStorageBase*; event: the storage itself, adopted
    kCodeVuBuffer = 3,         // ZVuBuffer*; event: the buffer itself, adopted
    kCodeMidiEvent = 4,        // ZMidiEvent*; event: the buffer itself, adopted
    kCodeSampleRate = 5,       // double, Hz
    kCodeBlockSize = 6,        // int32, samples
    kCodeHookA = 7,            // event only, data null
    kCodeHookB = 8,            // event only, data null
    kCodeBypass = 9,           // bool
    kCodeMeterArgument = 10,   // int32; asked only
    kCodeTimeInfo = 11,        // ZTimeInfo; asked only
    kCodePostHost = 12,        // int32, the argument of PostHost; event only
    kCodeNumInputs = 13,       // int32; asked only
    kCodeHostName = 14,        // char[256]; asked only
    kCodeFirstOfEffect = 10000 // from here on an effect's own
};

/// The adapter's face towards the effect. Implemented by the adapter; the effect calls it on the thread that called
/// the effect.
class ZEffectWrapper
{
public:
    virtual ~ZEffectWrapper () = default;

    virtual bool NotifyEditor (std::int32_t code, void* data) = 0;  ///< false without an editor
    virtual bool NotifyEditor2 (std::int32_t code, void* data) = 0; ///< the same on the editor's second entry
    virtual void PostHost (std::int32_t /*argument*/) {}
    virtual void GetTimeInfo (ZTimeInfo* info) = 0;      ///< copies the snapshot of the present block
    virtual std::int32_t GetHostName (char* buffer) = 0; ///< buffer: 256 bytes. @return kOk or kFailed
    virtual bool QueryHost (std::int32_t /*kind*/, void* /*out*/) { return false; }
};

} // namespace tessaly
