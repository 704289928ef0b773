#include "ch_strip_file_exception.h"
#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "memory_stream.h"
#include "recording_wrapper.h"
#include "state_bytes.h"
#include <array>
#include <cmath>
#include <cstring>
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A collection of one set, "Other".
class OneSet : public KPRD_CollectionImp
{
public:
    void Load (KPRD_Entries& list) override
    {
        list.push_back (std::make_unique<KPRD_Data> ());
        list.back ()->SetFile ("Other", 1);
    }
};

/// An instance without a host.
struct Strip
{
    explicit Strip (const KPRD_MakeBackEnd& makeBackEnd = {})
    {
        const auto records = ChannelStripRecords ();
        const auto program = ChannelStripProgram ();
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (makeBackEnd), records.data (), &program, 1,
                           kStripParameterCount);
        effect.SetPluginCore (std::make_unique<Channel_Strip> (&effect));
        log.clear ();
    }

    Bytes Write ()
    {
        Bytes bytes (4096, '\0');
        ZMemoryStream stream (bytes.data (), 4096);
        effect.WriteState (&stream);
        bytes.resize (static_cast<std::size_t> (stream.GetSize ()));
        return bytes;
    }

    /// @return whether the effect found nothing wrong
    bool Read (const Bytes& bytes, std::int32_t from = 0)
    {
        std::vector<char> held (bytes.begin (), bytes.end ()); // of just that size
        const auto size = static_cast<std::int32_t> (held.size ());
        ZMemoryStream stream (held.data (), size, size);
        stream.Seek (from, kSeekFromStart);
        effect.ReadState (&stream);
        return effect.StateFault ().empty ();
    }

    float Value (std::int32_t index) { return effect.GetParameter (index); }
    std::vector<float> AllValues ()
    {
        std::vector<float> values;
        for (std::int32_t i = 0; i < kStripParameterCount; ++i)
            values.push_back (Value (i));
        return values;
    }
    std::string Name () { return effect.GetKeyPointName (); }

    CallLog log;
    RecordingWrapper wrapper{ log };
    ZChannel_StripEffect effect{ &wrapper };
};

const std::vector<float> kHalves (22, 0.5f);
const Bytes kSet = KeyPoints ("Other", 50);

Bytes Ordinary (const std::vector<float>& values = kHalves)
{
    return Tree (Format () + Chunk ("KPD ", kSet) + Chunk ("PRM ", Values (values)));
}

float Infinity ()
{
    return std::numeric_limits<float>::infinity ();
}

} // namespace

TEST_CASE ("A fresh strip stores the built-in set under its name and its 22 values, byte for byte")
{
    Strip strip;
    Bytes set = "01 Basic";
    set.resize (256);
    for (std::uint32_t row = 0; row < 10; ++row)
        for (std::uint32_t column = 0; column < 17; ++column)
            set += Little (static_cast<std::uint16_t> (strip.effect.KeyPointStep (row, column)), 2);
    const auto expected = Tree (Format () + Chunk ("KPD ", set) + Chunk ("PRM ", Values (strip.AllValues ())));
    CHECK (strip.effect.GetStateSize () == 720);
    strip.log.clear ();
    CHECK (strip.Write () == expected);
    CHECK (strip.log == CallLog{ "notify 10001 null", "notify 10002 null" });
    CHECK (expected.substr (28 + 256, 4) == "\xB8" + Bytes (1, '\0') + "\x9F" + Bytes (1, '\0')); // steps 184, 159
}

TEST_CASE ("A stored state comes back byte for byte, what lies behind the name's end and row 9 included")
{
    auto set = KeyPoints ("Name", 20);
    set.replace (100, 5, "\x7Frest");
    const auto values = [] (float bypasses)
    {
        std::vector<float> all;
        for (int i = 0; i < 22; ++i)
            all.push_back (i == 18 || i == 19 || i == 21 ? bypasses : 0.04f * static_cast<float> (i) + 0.001f);
        all[3] = -0.0f;
        all[4] = 1.0e-42f;
        return all;
    };
    for (const float bypasses : { 0.0f, 1.0f })
    {
        const auto tree = Tree (Format () + Chunk ("KPD ", set) + Chunk ("PRM ", Values (values (bypasses))));
        Strip strip;
        CHECK (strip.Read ("where it begins does not count" + tree + "nor what follows", 30));
        CHECK (strip.Write () == tree);
    }
}

TEST_CASE ("Edits win over the morph, \"Bypass\" follows the two sections, and the editor hears both ends")
{
    auto values = kHalves;
    values[1] = 0.125f;             // an edited "Attack"
    values[18] = values[19] = 1.0f; // both sections off
    values[21] = 0.0f;              // and a "Bypass" that does not fit
    Strip strip;
    CHECK (strip.Read (Ordinary (values)));
    CHECK (strip.Value (1) == 0.125f);
    CHECK (strip.Value (21) == 1.0f);
    CHECK (strip.log.front () == "notify 10003 null");
    CHECK (strip.log.back () == "notify 10004 null");

    // The morph ran by the new set before the edits: its values are the defaults now. All rows are 50 + column.
    ZParameterStorageBase* storage = nullptr;
    strip.effect.GetInfo (kCodeStorage, &storage);
    CHECK (storage->GetDefaultPlain (8) == 57.0f);
}

TEST_CASE ("The set that the state names becomes the current entry of the collection when it is there")
{
    Strip strip ([] { return std::make_unique<OneSet> (); });
    KPRD_Manager* manager = nullptr;
    REQUIRE (strip.effect.GetInfo (kCodeKeyPointManager, &manager));
    const auto* expected = manager->FindByName ("Other");
    REQUIRE (expected != nullptr);
    CHECK (strip.Read (Ordinary ()));
    CHECK (manager->Current () == expected);
    CHECK (strip.Read (Tree (Format () + Chunk ("KPD ", KeyPoints ("Gone", 1)))));
    CHECK (manager->Current () == expected);
}

TEST_CASE ("The wide form is read and written back narrow")
{
    const auto inside =
        WideChunk ("FINF", Little (2, 8)) + WideChunk ("KPD ", kSet) + WideChunk ("PRM ", Values (kHalves));
    Strip narrow;
    Strip wide;
    CHECK (narrow.Read (Ordinary ()));
    CHECK (wide.Read (WideChunk ("CHST", inside)));
    CHECK (wide.Write () == narrow.Write ());
    CHECK (wide.Name () == "Other");
}

TEST_CASE ("Unknown chunks are passed over, missing ones leave the set as it was and the values 0")
{
    Strip strip;
    const Bytes odd (3, 'x');
    CHECK (strip.Read (Tree (Chunk ("FINF", Little (9, 4) + odd) + Chunk ("KPD ", kSet + odd) + Chunk ("WHAT", odd) +
                             Chunk ("VOID", "") + Chunk ("PRM ", Values (kHalves) + odd) + Chunk ("LAST", odd))));
    CHECK (strip.Name () == "Other");
    CHECK (strip.Value (0) == 0.5f);

    CHECK (strip.Read (Tree (Format ())));
    CHECK (strip.Name () == "Other");
    CHECK (strip.effect.KeyPointStep (9, 16) == 66);
    CHECK (strip.AllValues () == std::vector<float> (22, 0.0f));
}

TEST_CASE ("Values: short and long lists count as far as they go, no number keeps the value, others the nearest end")
{
    Strip strip;
    CHECK (strip.Read (Ordinary (std::vector<float> (40, 0.5f))));
    CHECK (strip.Read (Tree (Format () + Chunk ("PRM ", Values ({ 0.25f, 0.75f }) + "xyz"))));
    CHECK (strip.Value (1) == 0.75f);
    CHECK (strip.Value (2) == 0.0f);

    auto values = kHalves;
    values[0] = values[20] = std::nanf ("");
    values[1] = Infinity ();
    values[2] = -Infinity ();
    values[3] = 1.0000001f;
    strip.effect.SetParameter (20, 0.25f);
    CHECK (strip.Read (Ordinary (values)));
    CHECK (strip.Value (0) == 0.25f);
    CHECK (strip.Value (1) == 1.0f);
    CHECK (strip.Value (2) == 0.0f);
    CHECK (strip.Value (3) == 1.0f);
    CHECK (strip.Value (20) == 0.25f);
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
        { "", "The chunk ID is abnormal." },
        { "CHSX" + tree.substr (4), "The chunk ID is abnormal." },
        { "XXXXCHST" + Little (100, 8), "It's not ChStrip file." },
        { "CHST" + Little (0xFFFFFFFF, 4) + tree.substr (8), "The chunk size is abnormal." },
        { Tree (Chunk ("KPD ", kSet) + Format ()), "No file information chunk." },
        { Tree (Chunk ("FINF", "abc")), "The chunk size is abnormal." },
        { Tree (Format () + Chunk ("KPD ", kSet) + "PRM " + Little (0x80000000, 4)), "The chunk size is abnormal.",
          true },
        { "CHST" + Little (9999, 4) + tree.substr (8), "The chunk ID is abnormal.", true },
        { Tree (Format () + Chunk ("KPD ", kSet) + Bytes (8 * 5000, '\0')), "The chunk size is abnormal.", true },
    };
    for (const auto& broken : cases)
    {
        Strip strip;
        const auto before = strip.AllValues ();
        CAPTURE (std::string (broken.message));
        CHECK_FALSE (strip.Read (broken.bytes));
        INFO (strip.effect.StateFault ());
        CHECK (strip.effect.StateFault ().find ("read csv-file error.\n" + std::string (broken.message) +
                                                "\nfile-pos : 0x0000") == 0);
        CHECK (strip.AllValues () == before);
        CHECK (strip.Name () == "01 Basic");
        CHECK (strip.effect.KeyPointStep (0, 0) == (broken.newSet ? 50 : 184));
        CHECK (strip.log == CallLog{ "notify 10003 null" });
    }
}

TEST_CASE ("Sizes that run past the parent or the stream end the tree where they lead")
{
    const auto withSize = [] (const Bytes& id, std::uint64_t size, const Bytes& payload)
    { return id + Little (size, 4) + payload; };
    Strip strip;
    CHECK (strip.Read (Tree (Format () + withSize ("PRM ", 0x7FFFFFFF, Values (kHalves)))));
    CHECK (strip.Value (0) == 0.5f);
    CHECK (strip.Read (Tree (Format () + withSize ("KPD ", 4, kSet)))); // whole, whatever its size says
    CHECK (strip.effect.KeyPointStep (9, 16) == 66);
    CHECK (strip.Read (Tree (Format () + Chunk ("PRM ", Values (kHalves)) + withSize ("KPD ", 99999, "cut"))));
    CHECK (strip.Name () == "cuter"); // what arrived counts
    CHECK (strip.Value (19) == 0.5f);
    const auto widest = Little (0x7FFFFFFFFFFFFFFF, 8);
    CHECK (strip.Read (Bytes (4, '\0') + "CHST" + widest + WideChunk ("FINF", Little (2, 8)) + Bytes (4, '\0') +
                       "PRM " + widest + Values ({ 0.75f })));
    CHECK (strip.Value (0) == 0.75f);
    CHECK (strip.Value (1) == 0.0f);
}

TEST_CASE ("Cut at every length, with every byte broken in turn: the strip stays within its ranges and ends its names")
{
    const auto tree = Ordinary ();
    Strip strip;
    const auto isSound = [&strip]
    {
        bool sound = std::memchr (strip.effect.GetKeyPointName (), 0, 256) != nullptr;
        for (const float value : strip.AllValues ())
            sound = sound && value >= 0.0f && value <= 1.0f;
        return sound;
    };
    bool allSound = true;
    for (std::size_t length = 0; length < tree.size (); ++length)
    {
        strip.Read (tree.substr (0, length));
        allSound = allSound && isSound ();
    }
    for (std::size_t place = 0; place < tree.size (); ++place)
        for (const char byte : { '\0', '\x7F', '\x80', '\xFF' })
        {
            auto broken = tree;
            broken[place] = byte;
            strip.Read (broken);
            allSound = allSound && isSound ();
        }
    strip.Read (Tree (Format () + Chunk ("KPD ", Bytes (596, '\xC3'))));
    CHECK (allSound);
    CHECK (isSound ());
    CHECK (strip.Name ().size () == 255);
}

TEST_CASE ("A set with steps beyond the scales is kept as it is, and the morph takes the nearest ends")
{
    for (const int step : { 20000, -20000 })
    {
        const auto tree = Tree (Format () + Chunk ("KPD ", KeyPoints ("Odd", step)) + Chunk ("PRM ", Values (kHalves)));
        Strip strip;
        CHECK (strip.Read (tree));
        CHECK (strip.effect.KeyPointStep (3, 0) == step);
        strip.effect.SetParameter (20, 0.25f);
        for (std::int32_t i = 1; i <= 17; ++i)
            CHECK (strip.Value (i) == (step > 0 ? 1.0f : 0.0f));
    }
}

TEST_CASE ("A fault's text is cut with three points when it is too long")
{
    const std::string longest (1023, 'a');
    CHECK (ChStripFileException (longest).what () == longest);
    const ChStripFileException cut (longest + 'a');
    const ChStripFileException copy = cut;
    CHECK (copy.what () == longest.substr (0, 1020) + "...");
}
