#pragma once

#include "old_plugin_core.h"
#include "recording_wrapper.h"

namespace tessaly::test
{

/// An engine that writes down what it is told and puts a constant out.
class RecordingCore : public ZOldPluginCore
{
public:
    RecordingCore (ZEffect* owner, CallLog& calls)
        : ZOldPluginCore (owner)
        , log (calls)
    {
    }
    ~RecordingCore () override { Record (log, "core gone"); }

    void SetVuBuffer (ZVuBuffer* buffer) override
    {
        ZOldPluginCore::SetVuBuffer (buffer);
        Record (log, "meters", buffer != nullptr);
    }
    void SetMidiEvent (ZMidiEvent* buffer) override { Record (log, "midi", buffer != nullptr); }
    void SetChannels (std::int32_t inputs, std::int32_t outputs) override { Record (log, "channels", inputs, outputs); }
    void SetBypass (bool on) override { Record (log, "bypass", on); }
    void SetProgramOld (std::int32_t index) override { Record (log, "program", index); }
    void SetSampleRateOld (double rateHz) override { Record (log, "rate", rateHz); }
    void SetBlockSizeOld (std::int32_t samples) override { Record (log, "block", samples); }
    void SetParameterOld (std::int32_t index, float plain) override { Record (log, "parameter", index, plain); }

    void Process (float**, float** out, std::int32_t count) override
    {
        for (std::int32_t i = 0; i < count; ++i)
            out[0][i] = output;
    }

    float output = 0.5f;

private:
    CallLog& log; // not owned: the test, outlives this
};

} // namespace tessaly::test
