#pragma once

#include "plugin_core.h"

namespace tessaly
{

class ZOldEffect;

/// Base of engines in the older, flat style: the operations of ZPluginCore that an engine needs arrive under names of
/// their own, and meters are written through the effect. Threads as in ZPluginCore.
class ZOldPluginCore : public ZPluginCore
{
public:
    explicit ZOldPluginCore (ZEffect* owner);

    void SetParameter (std::int32_t index, float plain) override { SetParameterOld (index, plain); }
    void SetProgram (std::int32_t index) override { SetProgramOld (index); }
    void SetSampleRate (double rateHz) override { SetSampleRateOld (rateHz); }
    void SetBlockSize (std::int32_t samples) override { SetBlockSizeOld (samples); }
    void Resume () override { ResumeOld (); }
    void Suspend () override { SuspendOld (); }

    virtual void SetParameterOld (std::int32_t /*index*/, float /*plain*/) {}
    virtual void SetProgramOld (std::int32_t /*index*/) {}
    virtual void SetSampleRateOld (double /*rateHz*/) {}
    virtual void SetBlockSizeOld (std::int32_t /*samples*/) {}
    virtual void ResumeOld () {}
    virtual void SuspendOld () {}

protected:
    /// Writes a meter at the head of the block in progress: readers see it when the block has ended.
    /// Nothing happens when the effect has no meters, or no such meter.
    void SetMeter (std::int32_t index, float value);
    void SetMeterDirect (std::int32_t index, float value); ///< writes what readers see now, drops what waits

    ZOldEffect* oldEffect; // the owner as ZOldEffect, null when it is none; not owned: it owns this core
};

} // namespace tessaly
