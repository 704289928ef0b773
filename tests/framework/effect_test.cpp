#include "old_effect.h"
#include "recording_core.h"
#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <memory>
#include <utility>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr const char* kTexts[]{ "low", "middle", "high", nullptr };

const std::array<ZParameterRecord, 3> kParameters{ {
    { kContinuous, 0, 1, 0, "a", "" },
    { kList, 0, 2, 0.5f, "b", "", nullptr, kTexts },
    { kBool, 0, 1, 0, "c", "", nullptr, kTexts },
} };
constexpr std::array<float, 3> kPlain{ 0.25f, 2.0f, 1.0f };
const ZProgramRecord kProgram{ "only", kPlain.data () };

/// An effect that makes its hooks heard.
class SomeEffect : public ZOldEffect
{
public:
    SomeEffect (ZEffectWrapper* host, CallLog& calls)
        : ZOldEffect (host)
        , log (calls)
    {
    }

    void AddStorage ()
    {
        SetStorage (std::make_unique<ZParameterStorageBase> (), kParameters.data (), &kProgram, 1, 3);
    }
    void AddCore () { SetPluginCore (std::make_unique<RecordingCore> (this, log)); }
    using ZOldEffect::SetBool;
    using ZOldEffect::SetInt;
    using ZOldEffect::SetPlain;

protected:
    void OnShutdown () override { Record (log, "shutdown"); }
    void OnProgram (std::int32_t index) override { Record (log, "on program", index, IsLoading ()); }
    void OnParameter (std::int32_t index, float value) override
    {
        Record (log, "on", index, value, IsLoading ());
        ZOldEffect::OnParameter (index, value);
    }
    void OnAllParameters () override { Record (log, "on all"); }

private:
    CallLog& log;
};

struct Bench
{
    CallLog Take () { return std::exchange (log, {}); }

    CallLog log;
    RecordingWrapper wrapper{ log };
    SomeEffect effect{ &wrapper, log };
};

} // namespace

TEST_CASE (
    "ZEffect: a storage applies its program, a new core gets buffers, settings and plain values, in a fixed order")
{
    Bench bench;
    bench.effect.AddStorage ();
    CHECK (bench.Take () ==
           CallLog{ "notify 2 object", "on 0 0.25 1", "on 1 1 1", "on 2 1 1", "on all", "on program 0 0" });
    bench.effect.SetSampleRate (96000.0);
    bench.effect.SetBlockSize (64);
    bench.effect.SetBypass (true);
    bench.effect.SetChannels (2, 2);
    bench.effect.CreateVuBuffer (2);
    bench.Take ();

    CallLog replay{ "notify 1 object", "meters 1",  "midi 0",           "channels 2 2",  "rate 96000",   "block 64",
                    "bypass 1",        "program 0", "parameter 0 0.25", "parameter 1 2", "parameter 2 1" };
    bench.effect.AddCore ();
    CHECK (bench.Take () == replay);

    bench.effect.AddCore ();
    replay.insert (replay.begin (), "core gone"); // before the new one is told of
    CHECK (bench.Take () == replay);
}

TEST_CASE ("ZEffect: adopts buffers by telling the editor, then the core, and drops all at shutdown")
{
    Bench bench;
    bench.effect.AddStorage ();
    bench.effect.AddCore ();
    bench.Take ();

    bench.effect.CreateVuBuffer (2);
    bench.effect.CreateMidiEvent ();
    CHECK (bench.effect.GetOldMidiEvent () != nullptr);
    bench.effect.DeleteMidiEvent ();
    CHECK (bench.effect.GetOldMidiEvent () == nullptr);
    bench.effect.DeleteMidiEvent (); // there is none: nothing to tell
    CHECK (bench.Take () ==
           CallLog{ "notify 3 object", "meters 1", "notify 4 object", "midi 1", "notify 4 null", "midi 0" });

    bench.effect.Shutdown ();
    CHECK (bench.Take () == CallLog{ "shutdown", "core gone", "notify 1 null", "notify 2 null", "notify 3 null" });
}

TEST_CASE ("ZEffect: a complete sweep in index order is noticed once, a gap or another start is none")
{
    Bench bench;
    bench.effect.AddStorage ();
    auto sweeps = [&bench] (std::initializer_list<std::int32_t> indices)
    {
        bench.Take ();
        for (const auto index : indices)
            bench.effect.SetParameter (index, 0.0f);
        return std::count (bench.log.begin (), bench.log.end (), "on all");
    };
    CHECK (sweeps ({ 0, 1, 2 }) == 1);
    CHECK (sweeps ({ 0, 2, 1, 2 }) == 0);
    CHECK (sweeps ({ 0, 0, 1, 2, 0, 1, 2 }) == 2);
    CHECK (sweeps ({ 0, 1, 2147483647, -2147483647 - 1, 2 }) == 0);
}

TEST_CASE ("ZEffect: values set as number, list entry or switch reach storage and core, a bad index only the hook")
{
    Bench bench;
    bench.effect.AddStorage ();
    bench.Take ();
    bench.effect.SetParameter (99, 0.5f);
    bench.effect.SetParameter (-1, 0.5f);
    CHECK (bench.Take () == CallLog{ "on 99 0.5 0", "on -1 0.5 0" });

    bench.effect.AddCore ();
    bench.Take ();
    bench.effect.SetPlain (0, 0.75f);
    bench.effect.SetInt (1, 1);
    bench.effect.SetBool (2, false);
    CHECK (bench.log == CallLog{ "parameter 0 0.75", "parameter 1 1", "parameter 2 0" });
    CHECK (bench.effect.GetParameter (1) == 0.5f);
}

TEST_CASE ("ZEffect: refuses queries of unknown kinds and for nowhere, and copes without a host")
{
    ZOldEffect alone (nullptr);
    double rate = 0.0;
    CHECK_FALSE (alone.GetInfo (kCodeSampleRate, nullptr));
    for (const auto kind : { 7, 8, 12, 15, 10000, -1 })
        CHECK_FALSE (alone.GetInfo (kind, &rate));
    alone.PostHost (5);
    alone.SetMeter (0, 1.0f);
    CHECK (alone.GetTimeInfoRef ()->tempo == 0.0);
}
