#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "recording_core.h"
#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <memory>
#include <string>
#include <thread>
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
    bool ShowsRow (std::uint32_t row) const
    {
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            if (storage->GetPlain (static_cast<std::int32_t> (column) + 1) !=
                static_cast<float> (effect.KeyPointStep (row, column)))
                return false;
        return true;
    }
    std::array<bool, 3> Bypasses () const
    {
        return { storage->GetBool (18), storage->GetBool (19), storage->GetBool (21) };
    }

    CallLog log;
    RecordingWrapper wrapper{ log };
    ZChannel_StripEffect effect{ &wrapper };
    ZParameterStorageBase* storage = nullptr; // not owned: the effect
};

std::string ValueText (const ZParameterStorageBase& storage, std::int32_t index)
{
    std::array<char, 64> text{};
    storage.GetValueText (index, text.data (), 63);
    return text.data ();
}

} // namespace

TEST_CASE ("Parameters of the strip: 22 in order, their ends and defaults as the panel and stored states know them")
{
    Instance instance;
    auto& storage = *instance.storage;
    REQUIRE (storage.GetParameterCount () == 22);
    CHECK (storage.GetProgramCount () == 1);
    std::array<char, 64> text{};
    constexpr std::array kLow{ 0, 57, 24, 0, 0, 0, 0, 4, 0, 0, 60, 0, 4, 0, 0, 4, 0, 0, 0, 0, 0, 0 };
    // clang-format off
    constexpr std::array kHigh { 200, 283, 300, 120, 2, 200, 200, 124, 360, 60, 124,
                                 360, 124, 360, 60, 72, 360, 360, 1, 1, 120, 1 };
    // clang-format on
    for (std::int32_t i = 0; i < 22; ++i)
    {
        CAPTURE (i);
        CHECK (storage.GetMinimum (i) == static_cast<float> (kLow[static_cast<std::size_t> (i)]));
        CHECK (storage.GetMaximum (i) == static_cast<float> (kHigh[static_cast<std::size_t> (i)]));
        CHECK (storage.NormalizedToPlain (i, 0.0f) == storage.GetMinimum (i));
        CHECK (storage.NormalizedToPlain (i, 1.0f) == storage.GetMaximum (i));
        CHECK (storage.GetFlags (i) == (i == 21 ? 16 : 0));
        storage.GetName (i, text.data (), 63);
        CHECK ((text[0] == '\0') == (i == 5 || i == 6));
        CHECK (storage.GetType (i) == (i == 4 ? 1 : i == 18 || i == 19 || i == 21 ? 2 : 0));
    }
    CHECK (storage.GetStep (1) == 1.0f / 226.0f);
    CHECK (storage.GetStep (4) == 1.0f / 3.0f);
    CHECK (storage.GetStep (18) == 0.5f);

    ZParameterStorageBase defaults; // as the tables say, without a morph
    const auto program = ChannelStripProgram ();
    defaults.Initialize (ChannelStripRecords ().data (), &program, 1, 22);
    // clang-format off
    constexpr std::array kShown {
        " 5.00", "12.49", "100.1", " INF", "Middle", " 0.500", " 0.500", "500.0", "  0.0", " 1.59", " 10.0k",
        "  0.0", " 2.00k", "  0.0", " 1.59", "100.0", "  0.0", "  0.0", "Off", "Off", "0", "Off"
    };
    // clang-format on
    for (std::int32_t i = 0; i < 22; ++i)
        CHECK (ValueText (defaults, i) == kShown[static_cast<std::size_t> (i)]);
    defaults.SetNormalized (4, 1.0f);
    CHECK (ValueText (defaults, 4) == "Hard");
}

TEST_CASE ("ZChannel_StripEffect: a fresh instance stands on the first key point, \"Drive\" on its default")
{
    Instance instance;
    CHECK (instance.ShowsRow (0));
    for (std::uint32_t row = 0; row < 9; ++row) // every key point lies within its parameter's range
        for (std::int32_t i = 1; i <= 17; ++i)
        {
            const auto step =
                static_cast<float> (instance.effect.KeyPointStep (row, static_cast<std::uint32_t> (i - 1)));
            CHECK (step >= instance.storage->GetMinimum (i));
            CHECK (step <= instance.storage->GetMaximum (i));
        }
    for (std::int32_t i = 1; i <= 17; ++i)
        CHECK (instance.storage->GetDefaultNormalized (i) == instance.storage->GetNormalized (i));
    CHECK (instance.storage->GetPlain (0) == 100.0f);
    CHECK (instance.Bypasses () == std::array<bool, 3>{ false, false, false });
    KPRD_Manager* manager = nullptr;
    CHECK (instance.effect.GetInfo (kCodeKeyPointManager, &manager));
    CHECK (manager != nullptr);
    CHECK_FALSE (ZChannel_StripEffect (nullptr).GetInfo (kCodeKeyPointManager, &manager));
}

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
    CHECK (instance.ShowsRow (8));
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

TEST_CASE ("ZChannel_StripEffect: \"Bypass\" is on when both sections are bypassed, and sets both")
{
    using States = std::array<bool, 3>; // equalizer, compressor, whole
    Instance instance;
    auto& effect = instance.effect;
    effect.SetPluginCore (std::make_unique<RecordingCore> (&effect, instance.log));
    instance.Take ();
    effect.SetParameter (18, 1.0f);
    CHECK (instance.Take () == CallLog{ "parameter 18 1", "parameter 21 0" });
    CHECK (instance.Bypasses () == States{ true, false, false });
    effect.SetParameter (19, 1.0f);
    CHECK (instance.Bypasses () == States{ true, true, true });
    effect.SetParameter (18, 0.0f);
    CHECK (instance.Bypasses () == States{ false, true, false });
    instance.Take ();
    effect.SetParameter (21, 0.5f);
    CHECK (instance.Take () == CallLog{ "parameter 21 1", "parameter 18 1", "parameter 19 1" });
    CHECK (instance.Bypasses () == States{ true, true, true });
    effect.SetParameter (19, 0.0f);
    effect.SetParameter (21, 0.49f);
    CHECK (instance.Bypasses () == States{ false, false, false });
}

TEST_CASE (
    "ZChannel_StripEffect: with the engine, a morph moves what the equalizer does, meters flow, threads may meet")
{
    Instance instance;
    auto engine = std::make_unique<Channel_Strip> (&instance.effect);
    auto& strip = *engine;
    instance.effect.CreateVuBuffer (2);
    instance.effect.SetPluginCore (std::move (engine));
    instance.SetPlain (20, 60.0f);
    CHECK (strip.bandFrequency (1) == 95.0);             // "Low F" step 31
    CHECK (strip.bandGain (3) == doctest::Approx (8.0)); // "High G" step 260
    instance.SetPlain (20, 0.0f);
    CHECK (strip.bandGain (3) == doctest::Approx (0.0));

    std::array<float, 64> samples;
    std::array<float*, 1> channels{ samples.data () };
    std::thread user (
        [&instance]
        {
            for (int i = 0; i < 240; ++i)
                instance.SetPlain (20, static_cast<float> (i % 121));
        });
    for (int i = 0; i < 200; ++i)
    {
        samples.fill (0.5f);
        ZAudioBlock block;
        block.inputs = block.outputs = channels.data ();
        block.numInputChannels = block.numOutputChannels = 1;
        block.numSamples = 64;
        CHECK (instance.effect.Process (block) == 0);
        instance.effect.AfterProcess (block);
    }
    user.join ();
    ZVuBuffer* meters = nullptr;
    instance.effect.GetInfo (kCodeVuBuffer, &meters);
    CHECK (meters->Get (1) > 0.0f);
    CHECK (std::all_of (samples.begin (), samples.end (), [] (float sample) { return std::abs (sample) < 10.0f; }));
}
