#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "memory_stream.h"
#include "recording_core.h"
#include "state_bytes.h"
#include <cmath>
#include <doctest/doctest.h>
#include <memory>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A strip as an instance has it, with another core and no host.
struct Strip
{
    explicit Strip (const KPRD_MakeBackEnd& makeBackEnd = {})
    {
        const auto records = ChannelStripRecords ();
        const auto program = ChannelStripProgram ();
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (makeBackEnd), records.data (), &program, 1,
                           kStripParameterCount);
        effect.GetInfo (kCodeStorage, &storage);
        effect.SetPluginCore (std::make_unique<RecordingCore> (&effect, log));
        log.clear ();
    }

    Bytes Write ()
    {
        Bytes bytes (kStateBytes - 92, '\0');
        ZMemoryStream stream (bytes.data (), static_cast<std::int32_t> (bytes.size ()));
        effect.WriteState (&stream);
        return bytes;
    }

    /// @return whether the effect found nothing wrong
    bool Read (const Bytes& bytes)
    {
        std::vector<char> held (bytes.begin (), bytes.end ()); // of just that size
        const auto size = static_cast<std::int32_t> (held.size ());
        ZMemoryStream stream (held.data (), size, size);
        effect.ReadState (&stream);
        return effect.StateFault ().empty ();
    }

    float Value (std::int32_t index) { return effect.GetParameter (index); }
    const std::vector<float>& Values () { return storage->GetValuesRef (); }
    std::string Name () { return effect.GetKeyPointName (); }

    CallLog log;
    RecordingWrapper wrapper{ log };
    ZChannel_StripEffect effect{ &wrapper };
    ZParameterStorageBase* storage = nullptr; // not owned: the effect
};

const std::vector<float> kHalves (kParameterCount, 0.5f);
const Bytes kSet = KeyPoints ("Other", 50);

Bytes Ordinary (const std::vector<float>& values = kHalves)
{
    return Tree (Format () + Chunk ("KPD ", kSet) + Chunk ("PRM ", Values (values)));
}

} // namespace

TEST_CASE ("A morph writes 17 values in order, each to core, default, host and editor")
{
    Strip strip;
    strip.effect.SetParameter (8, 0.25f); // the user's, until the next morph
    strip.effect.SetParameter (0, 0.5f);
    CHECK (strip.storage->GetDefaultPlain (8) == 133.0f);
    CHECK (strip.log == CallLog{ "parameter 8 90", "parameter 0 100" });

    strip.log.clear ();
    strip.effect.SetParameter (20, 1.0f);
    CallLog expected{ "parameter 20 120" };
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
    {
        Record (expected, "parameter", column + 1, builtInKeyPoints.rows[8][column]);
        Record (expected, "post", column + 1);
        Record (expected, "notify", 12, column + 1);
    }
    CHECK (strip.log == expected);
    CHECK (strip.storage->GetPlain (8) == 274.0f);
    CHECK (strip.storage->GetDefaultPlain (8) == 274.0f);
    CHECK (strip.storage->GetPlain (0) == 100.0f);
}

TEST_CASE ("MorphStepsAt tells what the morph writes at every position, each step within its parameter's range")
{
    Strip strip;
    for (int position = 0; position <= 120; ++position)
    {
        strip.effect.SetParameter (20, static_cast<float> (position) / 120.0f);
        const auto steps = strip.effect.MorphStepsAt (static_cast<float> (position)).value ();
        for (std::int32_t i = 1; i <= 17; ++i)
            REQUIRE (strip.storage->GetPlain (i) == steps[static_cast<std::size_t> (i - 1)]);
    }
    CHECK (strip.effect.TakeMorphWroteParameters ());
    CHECK_FALSE (strip.effect.TakeMorphWroteParameters ());
    CHECK_FALSE (ZChannel_StripEffect (nullptr).MorphStepsAt (0.0f)); // no storage

    for (const auto& [stored, value] : { std::pair{ 20000, 1.0f }, { -20000, 0.0f } }) // beyond the scales
    {
        CHECK (strip.Read (Tree (Format () + Chunk ("KPD ", KeyPoints ("Odd", stored)))));
        CHECK (strip.effect.KeyPointStep (3, 0) == stored);
        strip.effect.SetParameter (20, 0.25f);
        for (std::int32_t i = 1; i <= 17; ++i)
            CHECK (strip.Value (i) == value);
    }
}

TEST_CASE ("The name of the set is cut at a whole character and holds nothing of the name before")
{
    ZChannel_StripEffect effect (nullptr);
    const std::string before (253, 'b');
    effect.SetKeyPointName ((before + "\xE2\x82\xAC").c_str ()); // a Euro sign, one byte of it too many
    CHECK (effect.GetKeyPointName () == before);
    effect.SetKeyPointName ("short");
    CHECK (std::string (effect.GetKeyPointName () + 6, 250) == std::string (250, '\0'));
}

TEST_CASE ("A stored state comes back byte for byte, the bytes after the name and row 9 included")
{
    auto set = KeyPoints ("Name", 20);
    set.replace (100, 5, "\x7Frest");
    std::vector<float> values;
    for (int i = 0; i < 18; ++i)
        values.push_back (0.04f * static_cast<float> (i) + 0.001f);
    values[4] = 1.0e-42f;
    values.insert (values.end (), { 1.0f, 0.0f, 0.8f, 0.0f });
    values.resize (kParameterCount, 0.5f);
    const auto tree = Tree (Format () + Chunk ("KPD ", set) + Chunk ("PRM ", Values (values)));
    Strip strip;
    CHECK (strip.Read (tree + "what follows does not count"));
    CHECK (strip.effect.GetStateSize () == kStateBytes - 92);
    strip.log.clear ();
    CHECK (strip.Write () == tree);
    CHECK (strip.log == CallLog{ "notify 10001 null", "notify 10002 null" });
}

TEST_CASE ("A state's edits win over its morph, its sections over \"Bypass\", and NaN changes nothing")
{
    auto values = kHalves;
    values[0] = values[20] = std::nanf ("");
    values[1] = 0.125f; // an edited "Attack"
    values[2] = HUGE_VALF;
    values[3] = -HUGE_VALF;
    values[18] = values[19] = 1.0f; // both sections off
    values[21] = 0.0f;              // and a "Bypass" that does not fit
    Strip strip;
    strip.effect.SetParameter (0, 0.25f);
    strip.effect.SetParameter (20, 0.75f);
    strip.log.clear ();
    CHECK (strip.Read (Ordinary (values)));
    CHECK (strip.log.front () == "notify 10003 null");
    CHECK (strip.log.back () == "notify 10004 null");

    values[0] = 0.25f;
    values[2] = values[21] = 1.0f;
    values[3] = 0.0f;
    values[20] = 0.75f;
    CHECK (strip.Values () == values);
    // The morph ran by the new set before the edits: its values are the defaults now. All rows are 50 + column.
    CHECK (strip.storage->GetDefaultPlain (8) == 57.0f);
}

TEST_CASE ("The set that the state names becomes the collection's current entry, or none does")
{
    class OneSet : public KPRD_CollectionImp
    {
        void Load (KPRD_Entries& list) override
        {
            list.emplace_back (std::make_unique<KPRD_Data> ())->SetFile ("Other", 1);
        }
    };
    Strip strip ([] { return std::make_unique<OneSet> (); });
    KPRD_Manager* manager = nullptr;
    REQUIRE (strip.effect.GetInfo (kCodeKeyPointManager, &manager));
    const auto* expected = manager->Roots ().front ().get ();
    CHECK (strip.Read (Ordinary ()));
    CHECK (manager->Current () == expected);
    CHECK (strip.Read (Tree (Format () + Chunk ("KPD ", KeyPoints ("Gone", 1)))));
    CHECK (manager->Current () == nullptr);
}

TEST_CASE ("Trees of any layout are read: what is missing, unknown, short, long or beyond the end")
{
    // The set's name and last step, and the first three values
    const auto read = [] (const Bytes& tree)
    {
        Strip strip;
        CHECK (strip.Read (tree));
        CallLog line;
        Record (line, strip.Name (), strip.effect.KeyPointStep (9, 16), strip.Value (0), strip.Value (1),
                strip.Value (2));
        return line.front ();
    };
    const auto whole = "Other 66 0.5 0.5 0.5";
    const auto valuesAlone = "01 Basic -1 0.5 0.5 0.5";
    const auto halves = Values (kHalves);

    CHECK (read (Ordinary ()) == whole);
    const auto wideFormat = WideChunk ("FINF", Little (2, 8));
    CHECK (read (WideChunk ("CHST", wideFormat + WideChunk ("KPD ", kSet) + WideChunk ("PRM ", halves))) == whole);
    CHECK (read (Tree (Chunk ("FINF", Little (9, 4) + "odd") + Chunk ("KPD ", kSet + "odd") + Chunk ("WHAT", "odd") +
                       Chunk ("VOID", "") + Chunk ("PRM ", Values (std::vector<float> (40, 0.5f)) + "odd"))) == whole);
    CHECK (read (Tree (Format ())) == "01 Basic -1 0 0 0");
    CHECK (read (Tree (Format () + Chunk ("PRM ", Values ({ 0.25f, 0.75f }) + "odd"))) == "01 Basic -1 0.25 0.75 0");

    // Sizes that are too small or run past the parent or the stream
    const auto withSize = [] (const Bytes& id, std::uint64_t size, const Bytes& payload)
    { return id + Little (size, 4) + payload; };
    CHECK (read (Tree (Format () + withSize ("PRM ", 0x7FFFFFFF, halves))) == valuesAlone);
    CHECK (read (Tree (Format () + withSize ("KPD ", 4, kSet))) == "Other 66 0 0 0");
    CHECK (read (Tree (Format () + Chunk ("PRM ", halves) + withSize ("KPD ", 99999, "cut"))) ==
           "cutBasic -1 0.5 0.5 0.5");
    const auto widest = Little (0x7FFFFFFFFFFFFFFF, 8);
    CHECK (read (Bytes (4, '\0') + "CHST" + widest + wideFormat + Bytes (4, '\0') + "PRM " + widest + halves) ==
           valuesAlone);
}

TEST_CASE ("A broken tree changes no parameter and says where, and the set may be new already")
{
    struct Case
    {
        Bytes bytes;
        const char* message;
        bool newSet = false;
    };
    const auto tree = Ordinary ();
    const Case cases[]{
        { "CHSX" + tree.substr (4), "The chunk ID is abnormal." },
        { "XXXXCHST" + Little (100, 8), "It's not ChStrip file." },
        { "CHST" + Little (0xFFFFFFFF, 4) + tree.substr (8), "The chunk size is abnormal." },
        { Tree (Chunk ("KPD ", kSet) + Format ()), "No file information chunk." },
        { Tree (Format () + Chunk ("KPD ", kSet) + "PRM " + Little (0x80000000, 4)), "The chunk size is abnormal.",
          true },
        { "CHST" + Little (9999, 4) + tree.substr (8), "The chunk ID is abnormal.", true },
        { Tree (Format () + Chunk ("KPD ", kSet) + Bytes (8 * 5000, '\0')), "The chunk size is abnormal.", true },
    };
    for (const auto& broken : cases)
    {
        Strip strip;
        const auto before = strip.Values ();
        CHECK_FALSE (strip.Read (broken.bytes));
        INFO (strip.effect.StateFault ());
        CHECK (strip.effect.StateFault ().starts_with ("read csv-file error.\n" + std::string (broken.message) +
                                                       "\nfile-pos : 0x0000"));
        CHECK (strip.Values () == before);
        CHECK (strip.Name () == "01 Basic");
        CHECK (strip.effect.KeyPointStep (0, 0) == (broken.newSet ? 50 : 184));
        CHECK (strip.log == CallLog{ "notify 10003 null" });
    }
}
