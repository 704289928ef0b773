#include "channel_strip_effect.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "recording_core.h"
#include <doctest/doctest.h>
#include <memory>
#include <utility>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A strip as an instance has it, but for the core.
struct Instance
{
    Instance ()
    {
        const auto records = ChannelStripRecords ();
        const auto program = ChannelStripProgram ();
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (), records.data (), &program, 1,
                           kStripParameterCount);
        effect.GetInfo (kCodeStorage, &storage);
        log.clear ();
    }

    CallLog Take () { return std::exchange (log, {}); }
    void SetPlain (std::int32_t index, float plain)
    {
        effect.SetParameter (index, storage->PlainToNormalized (index, plain));
    }

    CallLog log;
    RecordingWrapper wrapper{ log };
    ZChannel_StripEffect effect{ &wrapper };
    ZParameterStorageBase* storage = nullptr; // not owned: the effect
};

} // namespace

TEST_CASE ("ZChannel_StripEffect: a morph writes 17 values in order, each to core, default, host and editor")
{
    Instance instance;
    instance.effect.SetPluginCore (std::make_unique<RecordingCore> (&instance.effect, instance.log));
    instance.effect.TakeMorphWroteParameters ();
    instance.Take ();
    instance.SetPlain (20, 120.0f);

    CallLog expected{ "parameter 20 120" };
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
    {
        const auto index = instance.effect.KeyPointParameter (8, column);
        Record (expected, "parameter", index, instance.effect.KeyPointStep (8, column));
        Record (expected, "post", index);
        Record (expected, "notify", 12, index);
    }
    CHECK (instance.Take () == expected);
    CHECK (instance.effect.TakeMorphWroteParameters ());
    CHECK_FALSE (instance.effect.TakeMorphWroteParameters ());
}

TEST_CASE ("ZChannel_StripEffect: a user's change stays until the next morph and leaves the default where it was")
{
    Instance instance;
    instance.effect.TakeMorphWroteParameters ();
    instance.SetPlain (8, 200.0f);
    instance.SetPlain (0, 3.0f);
    CHECK_FALSE (instance.effect.TakeMorphWroteParameters ());
    CHECK (instance.storage->GetDefaultPlain (8) == 133.0f);
    CHECK (instance.storage->GetPlain (20) == 0.0f);
    CHECK (instance.log.empty ());

    instance.SetPlain (20, 33.0f);
    CHECK (instance.storage->GetPlain (8) == 234.0f);
    CHECK (instance.storage->GetDefaultPlain (8) == 234.0f);
    CHECK (instance.storage->GetPlain (0) == 3.0f);
}
