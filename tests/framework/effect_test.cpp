#include "old_effect.h"
#include "recording_core.h"
#include <array>
#include <doctest/doctest.h>
#include <memory>
#include <utility>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr const char* kTexts[]{ "low", "middle", "high", nullptr };

/// What outlives the effect.
struct Surroundings
{
    CallLog log;
    RecordingWrapper adapter{ log };
};

/// An effect of three parameters that makes its hooks heard.
class SomeEffect : private Surroundings, public ZOldEffect
{
public:
    SomeEffect ()
        : ZOldEffect (&adapter)
    {
        const std::array<ZParameterRecord, 3> parameters{ {
            { kContinuous, 0, 1, 0, "a", "" },
            { kList, 0, 2, 0.5f, "b", "", nullptr, kTexts },
            { kBool, 0, 1, 0, "c", "", nullptr, kTexts },
        } };
        const std::array<float, 3> plain{ 0.25f, 2.0f, 1.0f };
        const ZProgramRecord program{ "only", plain.data () };
        SetStorage (std::make_unique<ZParameterStorageBase> (), parameters.data (), &program, 1, 3);
    }

    void AddCore () { SetPluginCore (std::make_unique<RecordingCore> (this, log)); }
    CallLog Take () { return std::exchange (log, {}); }

protected:
    void OnShutdown () override { Record (log, "shutdown"); }
    void OnProgram (std::int32_t index) override { Record (log, "on program", index, IsLoading ()); }
    void OnParameter (std::int32_t index, float value) override
    {
        Record (log, "on", index, value, IsLoading ());
        ZOldEffect::OnParameter (index, value);
    }
    void OnAllParameters () override { Record (log, "on all"); }
};

} // namespace

TEST_CASE ("ZEffect: storage, cores and buffers are adopted, filled and dropped in a fixed order")
{
    SomeEffect effect;
    CHECK (effect.Take () ==
           CallLog{ "notify 2 object", "on 0 0.25 1", "on 1 1 1", "on 2 1 1", "on all", "on program 0 0" });
    effect.SetSampleRate (96000.0);
    effect.SetBlockSize (64);
    effect.SetBypass (true);
    effect.SetChannels (2, 2);
    effect.CreateVuBuffer (2);
    effect.Take ();

    CallLog replay{ "notify 1 object", "meters 1",  "midi 0",           "channels 2 2",  "rate 96000",   "block 64",
                    "bypass 1",        "program 0", "parameter 0 0.25", "parameter 1 2", "parameter 2 1" };
    effect.AddCore ();
    CHECK (effect.Take () == replay);
    effect.AddCore ();
    replay.insert (replay.begin (), "core gone"); // before the new one is told of
    CHECK (effect.Take () == replay);

    effect.CreateMidiEvent ();
    effect.DeleteMidiEvent ();
    CHECK (effect.Take () == CallLog{ "notify 4 object", "midi 1", "notify 4 null", "midi 0" });

    effect.Shutdown ();
    CHECK (effect.Take () == CallLog{ "shutdown", "core gone", "notify 1 null", "notify 2 null", "notify 3 null" });
}

TEST_CASE ("ZEffect: a complete sweep in index order is noticed, one with a gap or a bad index is none")
{
    SomeEffect effect;
    effect.Take ();
    for (const auto index : { 0, 1, 2147483647, -2147483647 - 1, 2, 1, 2, 0, 1, 2 })
        effect.SetParameter (index, 0.5f);
    CHECK (effect.Take () == CallLog{ "on 0 0.5 0", "on 1 0.5 0", "on 2147483647 0.5 0", "on -2147483648 0.5 0",
                                      "on 2 0.5 0", "on 1 0.5 0", "on 2 0.5 0", "on 0 0.5 0", "on 1 0.5 0",
                                      "on 2 0.5 0", "on all" });
    CHECK (effect.GetParameter (0) == 0.5f);
}

TEST_CASE ("ZEffect: refuses queries of unknown kinds and for nowhere, and copes without a host")
{
    ZOldEffect alone (nullptr);
    double rate = 0.0;
    CHECK_FALSE (alone.GetInfo (kCodeSampleRate, nullptr));
    CHECK_FALSE (alone.GetInfo (15, &rate));
    alone.PostHost (5);
    alone.SetMeter (0, 1.0f);
    CHECK (alone.GetTimeInfoRef ()->tempo == 0.0);
}
