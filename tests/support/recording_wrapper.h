#pragma once

#include "effect_wrapper.h"
#include "result.h"
#include <sstream>
#include <string>
#include <vector>

namespace tessaly::test
{

/// What happened, in order, as short texts.
using CallLog = std::vector<std::string>;

template <typename... Words>
void Record (CallLog& log, const Words&... words)
{
    std::ostringstream text;
    const char* gap = "";
    ((text << gap << words, gap = " "), ...);
    log.push_back (text.str ());
}

/// The adapter's place: writes down what the effect tells it.
class RecordingWrapper : public ZEffectWrapper
{
public:
    explicit RecordingWrapper (CallLog& calls)
        : log (calls)
    {
    }

    bool NotifyEditor (std::int32_t code, void* data) override
    {
        if (data == nullptr)
            Record (log, "notify", code, "null");
        else if (code == kCodePostHost)
            Record (log, "notify", code, *static_cast<std::int32_t*> (data));
        else
            Record (log, "notify", code, "object");
        return true;
    }
    bool NotifyEditor2 (std::int32_t, void*) override { return false; }
    void PostHost (std::int32_t argument) override { Record (log, "post", argument); }
    void GetTimeInfo (ZTimeInfo*) override {}
    std::int32_t GetHostName (char*) override { return kFailed; }

private:
    CallLog& log; // not owned: the test, outlives this
};

} // namespace tessaly::test
