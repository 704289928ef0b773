#include "environment_variable.h"
#include "panel.h"
#include "program_run.h"
#include "set_file.h"
#include "set_plot.h"
#include "state_bytes.h"
#include "state_chunk.h"
#include "temp_folder.h"
#include <doctest/doctest.h>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using namespace tessaly;
using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

const std::string kHeader = "Attack,Release,Ratio,Knee,Drive Offset,Makeup Amount,Side Chain F,Side Chain G,"
                            "Side Chain Q,High F,High G,Mid F,Mid G,Mid Q,Low F,Low G,Total Gain\n";
const std::string kRow = "12.49,100.1,INF,Middle,0.5,0.5,500,0,1.59,10k,0,2k,0,1.59,100,0,0\n";
const std::vector<int> kRowSteps{ 221, 164, 120, 1, 100, 100, 60, 180, 20, 112, 180, 84, 180, 20, 32, 180, 180 };

/// A key-point file put together by hand, every step of row k the number k + 60, zeros elsewhere.
std::string SetBytes ()
{
    std::string bytes = "KPRD" + std::string (508, '\0');
    for (std::size_t row = 0; row < 9; ++row)
        for (std::size_t column = 0; column < 17; ++column)
            bytes[32 + 40 * row + 2 * column + 1] = static_cast<char> (column == 3 ? row % 3 : row + 60);
    return bytes;
}

/// Row of a key-point file, from 0.
std::vector<int> Steps (const std::string& bytes, std::size_t row)
{
    std::vector<int> steps;
    for (std::size_t at = 32 + 40 * row; steps.size () < 17; at += 2)
        steps.push_back (static_cast<unsigned char> (bytes[at]) * 256 + static_cast<unsigned char> (bytes[at + 1]));
    return steps;
}

const std::vector<int> kEmpty (17, 0xFFFF);

/// The program as a user runs it, in a folder of its own.
struct KeyPointsTool
{
    TempFolder folder;
    std::string set = (folder / "a.kpd").string ();

    std::string Write (const char* name, const std::string& content) const
    {
        return folder.Write (name, content).string ();
    }

    static ProgramRun Run (const Words& words) { return RunProgram (KEYPOINTS, words); }
    ProgramRun Make (const std::string& table) const { return Run ({ "make", set, "--from", Write ("t.csv", table) }); }

    /// Runs, and expects a failure that is told with these words among others.
    static void Fails (const Words& words, const std::string& part)
    {
        const auto run = Run (words);
        CHECK (run.exitStatus == 1);
        CHECK (run.err.find (part) != std::string::npos);
    }
};

} // namespace

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: make writes the nearest steps, and show a table that makes the same file")
{
    const auto made = Make ("\xEF\xBB\xBF# soft first\r\n" + kHeader + kRow +
                            ",,,,,,,,,,,,,,,,\n"
                            "80,\" 300 \",2.0,soft,0,1,20,-18,16,1.01k,18,20K,+3,0.5,1000,.1,-.1\n"
                            "\n" +
                            kRow + "\n\n");
    CHECK (made.err == "");
    REQUIRE (made.exitStatus == 0);
    const auto bytes = ReadFile (set);
    REQUIRE (bytes.size () == 512);
    CHECK (bytes.substr (0, 32) == "KPRD" + std::string (28, '\0'));
    CHECK (Steps (bytes, 0) == kRowSteps);
    CHECK (Steps (bytes, 1) == kEmpty); // fields all empty
    CHECK (Steps (bytes, 2) ==
           std::vector<int>{ 283, 229, 20, 0, 0, 200, 4, 0, 60, 72, 360, 124, 210, 0, 72, 181, 179 });
    CHECK (Steps (bytes, 3) == kEmpty); // a blank line
    CHECK (Steps (bytes, 4) == kRowSteps);
    CHECK (Steps (bytes, 8) == kEmpty); // no line
    CHECK (bytes.substr (32 + 34, 6) == std::string (6, '\0'));
    CHECK (bytes.substr (392) == std::string (120, '\0'));

    const auto table = Run ({ "show", set, "--csv" }).out;
    fs::remove (set);
    CHECK (Make (table).exitStatus == 0);
    CHECK (ReadFile (set) == bytes);

    // Numbered, in any order of rows and columns.
    fs::remove (set);
    const std::string header = kHeader.substr (7, kHeader.size () - 8) + ",KEY  POINT,attack\n";
    const std::string values = kRow.substr (6, kRow.size () - 7);
    REQUIRE (Make (header + values + ",9,12.49\n\n" + values + ",2,80\n").exitStatus == 0);
    CHECK (Steps (ReadFile (set), 8) == kRowSteps);
    CHECK (Steps (ReadFile (set), 1)[0] == 283);
    CHECK (Steps (ReadFile (set), 0) == kEmpty);
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: make reads tables as spreadsheets with a decimal comma write them")
{
    for (const char separator : { ';', '\t' })
    {
        std::string table;
        for (const char c : kHeader + kRow)
            table += c == ',' ? separator : c == '.' ? ',' : c;
        table.replace (table.find ("12,49"), 5, "\"12,49\"");
        REQUIRE (Make (table).exitStatus == 0);
        CHECK (Steps (ReadFile (set), 0) == kRowSteps);
        fs::remove (set);
    }
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: make refuses a bad table with row, column and reason, and writes nothing")
{
    const auto with = [] (const std::string& from, const std::string& to)
    {
        auto row = kRow;
        return kHeader + kRow + row.replace (row.find (from), from.size (), to);
    };
    std::string ten = kHeader;
    for (int i = 0; i < 10; ++i)
        ten += kRow;
    const std::vector<std::pair<std::string, std::string>> faults{
        { with ("12.49", "fast"), "row 2 (line 3), \"Attack\": \"fast\" is no value; it takes 0.092 to 80.00 ms" },
        { with ("Middle", "Mid"), "\"Knee\": \"Mid\" is no value; it takes Soft, Middle or Hard" },
        { with ("12.49", ""), "\"Attack\": no value, in a row that has others" },
        { with (",10k", ""), "line 3: there are 16 fields where the header has 17" },
        { ten, "row 10 (line 11): a set has nine key points" },
        { "Attack,Release\n", "does not name \"Ratio\"" },
        { "Attack," + kHeader, "\"Attack\" twice" },
        { "Key point," + kHeader + "0," + kRow, "\"0\" is no number from 1 to 9" },
        { "Key point," + kHeader + "3," + kRow + "3," + kRow, "3 comes twice" },
    };
    for (const auto& [table, message] : faults)
        Fails ({ "make", set, "--from", Write ("t.csv", table) }, message);
    Fails ({ "make", (folder / "no" / "a.kpd").string (), "--from", Write ("t.csv", kHeader + kRow) }, "");
    CHECK (folder.FileCount () == 1);

    Write ("a.kpd", "mine");
    Fails ({ "make", set, "--from", Write ("t.csv", kHeader + kRow) }, "--force");
    CHECK (ReadFile (set) == "mine");
    CHECK (Run ({ "make", set, "--from", (folder / "t.csv").string (), "--force" }).exitStatus == 0);
    CHECK (Steps (ReadFile (set), 0) == kRowSteps);
    CHECK (folder.FileCount () == 2);
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: show prints nine rows, marks empty ones, and writes JSON for programs")
{
    auto bytes = SetBytes ();
    bytes[32 + 40 * 4] = bytes[32 + 40 * 4 + 1] = '\xFF'; // one cell makes row 5 empty
    Write ("a.kpd", bytes);
    const auto shown = Run ({ "show", set }).out;
    CHECK (shown.find ("\n5  (empty)\n") != std::string::npos);
    CHECK (shown.find ("500.0") != std::string::npos); // step 60 of "Side Chain F"

    const auto json = nlohmann::json::parse (Run ({ "show", set, "--json" }).out);
    CHECK (json["keyPoints"].size () == 9);
    CHECK (json["keyPoints"][4]["values"].is_null ());
    CHECK (json["keyPoints"][0]["values"]["Side Chain F"] == "500.0");
    CHECK (json["keyPoints"][0]["steps"]["Side Chain F"] == 60);

    Fails ({ "show", Write ("b.kpd", "KPRD") }, "512");
    CHECK (Run ({ "show", set, "--csv", "--json" }).exitStatus != 0);
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: check says of each file whether the plug-in would take it")
{
    const auto good = Write ("a.KPD", SetBytes ());
    const auto run =
        Run ({ "check", good, Write ("long.kpd", SetBytes () + "x"), Write ("magic.kpd", "X" + SetBytes ().substr (1)),
               Write ("a.txt", SetBytes ()), (folder / "gone.kpd").string (), "/dev" });
    CHECK (run.exitStatus == 1);
    for (const char* part : { "a.KPD: would be taken, 9 of 9 key points", "row 2, \"Side Chain Q\": step 61 is beyond",
                              "long.kpd: would not be taken: it is not 512", "magic.kpd: would not", "a.txt: would not",
                              "gone.kpd: would not", "/dev: would not" })
        CHECK_MESSAGE (run.out.find (part) != std::string::npos, part);
    CHECK (Run ({ "check", good }).exitStatus == 1); // it has steps beyond the scales
    CHECK (Make (kHeader + kRow).exitStatus == 0);
    CHECK (Run ({ "check", set }).exitStatus == 0);
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: capture makes a key point of each state, and an empty one of a dash")
{
    std::vector<float> values (kParameterCount, 1.0f);
    values[7] = std::numeric_limits<float>::infinity (); // as good as 1
    values[4] = 0.5f;                                    // "Middle"
    const auto low = State (std::vector<float> (kParameterCount, 0.0f), KeyPoints ("x", 0));
    const auto first = Write ("low.state", low);
    const auto run = Run ({ "capture", set, first, "-", Write ("high.state", State (values, KeyPoints ("x", 0))) });
    CHECK (run.err == "");
    REQUIRE (run.exitStatus == 0);
    const auto bytes = ReadFile (set);
    CHECK (Steps (bytes, 0)[0] == 57);
    CHECK (Steps (bytes, 1) == kEmpty);
    CHECK (Steps (bytes, 2)[0] == 283);
    CHECK (Steps (bytes, 2)[3] == 1);

    values[1] = std::numeric_limits<float>::quiet_NaN ();
    const auto other = (folder / "b.kpd").string ();
    Fails ({ "capture", other, Write ("other.vstpreset", "VST3" + Little (1, 4) + Bytes (32, '7') + Little (48, 8)) },
           "");
    Fails ({ "capture", other, Write ("nan", State (values, KeyPoints ("x", 0))) }, "Attack");
    for (const std::size_t length : { 4UL, 50UL, 724UL, 782UL }) // the last ahead of its values, and within them
        Fails ({ "capture", other, Write ("short", low.substr (0, length)) }, "");
    CHECK (Run ({ "capture", other, "-", "-", "-", "-", "-", "-", "-", "-", "-", first }).exitStatus != 0);
    CHECK_FALSE (fs::exists (other));

    Fails ({ "capture", first, "-", first, "--force" }, "which is read");
    CHECK (ReadFile (first) == low);
    const auto table = Write ("own.csv", kHeader + kRow);
    Fails ({ "make", table, "--from", (folder / "./own.csv").string (), "--force" }, "which is read");
    CHECK (ReadFile (table) == kHeader + kRow);
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: install puts a set where list and path find it")
{
    const EnvironmentVariable dirs ("XDG_DATA_DIRS", (folder / "machine").c_str ());
    const EnvironmentVariable home ("XDG_DATA_HOME", (folder / "home").c_str ());
    Fails ({ "list" }, "no set");
    CHECK_FALSE (fs::exists (folder / "home"));

    const auto mine = Write ("My Set.kpd", SetBytes ());
    Fails ({ "install", mine }, "beyond the parameter");
    REQUIRE (Run ({ "install", mine, "--force" }).exitStatus == 0);
    CHECK (ReadFile (folder / "home/Hollin/KPRD/My Set.kpd") == SetBytes ());
    Fails ({ "install", mine }, "");
    Fails ({ "install", Write ("bad.kpd", "x") }, "512");

    fs::create_directories (folder / "machine/Hollin/KPRD/voice");
    Write ("machine/Hollin/KPRD/voice/b.kpd", SetBytes ());
    Write ("machine/Hollin/KPRD/voice/A.kpd", SetBytes ());
    CHECK (Run ({ "list" }).out == "voice/\n  A\n  b\nMy Set\n");
    CHECK (nlohmann::json::parse (Run ({ "list", "--json" }).out)[1] == "voice/b");
    for (const char* name : { "My Set", "my set", "voice/a", "01 basic" })
        CHECK (Run ({ "show", name }).err == "");
    Write ("machine/Hollin/KPRD/a.kpd", SetBytes ());
    CHECK (Run ({ "show", "a" }).err ==
           "keypoints: 2 sets have that name; taken: \"a\", the first in the collection\n");
    fs::remove (folder / "machine/Hollin/KPRD/a.kpd");
    Fails ({ "uninstall", "voice/a" }, "no set"); // the machine's
    CHECK (Run ({ "uninstall", "my set" }).exitStatus == 0);
    CHECK_FALSE (fs::exists (folder / "home/Hollin/KPRD/My Set.kpd"));
    CHECK (Run ({ "path" }).out == "exists   " + (folder / "machine/Hollin/KPRD").string () + "\nexists   " +
                                       (folder / "home/Hollin/KPRD").string () + "\n");
}

TEST_CASE ("keypoints: a state without a set takes one into the built-in table, whose last row is empty")
{
    constexpr std::size_t kLastRow = 92 + 284 + 9 * 34; // in a state: behind its head, the set's name and nine rows
    const std::vector<float> values (22, 0.0f);
    const Bytes state = State (values, "").substr (0, 92) + Tree (Format () + Chunk ("PRM ", Values (values)));
    const auto changed = keypoints::WithKeyPoints (std::as_bytes (std::span (state)), "one", keypoints::EmptySet (),
                                                   keypoints::Panel ());
    REQUIRE (changed.size () == kStateBytes);
    CHECK (changed[kLastRow] == std::byte{ 0xFF });
    CHECK (changed[kLastRow + 33] == std::byte{ 0xFF });
}

TEST_CASE_FIXTURE (KeyPointsTool, "keypoints: plot draws the curves that the panel's values mean")
{
    Make (kHeader + ",,,,,,,,,,,,,,,,\n" + kRow); // flat, the threshold at -20 dB for Drive 5, a ratio of 3000
    const auto page = keypoints::PlotOf ("a", keypoints::ReadSetFile (set));
    const auto& equalizer = page.diagrams[0].curves;
    const auto& compressor = page.diagrams[1].curves;
    REQUIRE (compressor.size () == 1);
    CHECK (compressor[0].endLabel == "2");
    CHECK (compressor[0].samples.front ().y == doctest::Approx (-60.0));
    CHECK (compressor[0].samples.back ().x == doctest::Approx (0.0));
    CHECK (compressor[0].samples.back ().y == doctest::Approx (-20.0).epsilon (0.001));
    for (const auto& sample : equalizer[0].samples)
        CHECK (std::abs (sample.y) < 1e-9);

    if (!TESSALY_HAS_PLOTS)
        return;
    const auto picture = (folder / "a.svg").string ();
    CHECK (Run ({ "plot", set, picture }).exitStatus == 0);
    CHECK (ReadFile (picture).find ("<svg") != std::string::npos);
    CHECK (Run ({ "plot", set, picture }).exitStatus == 1); // it is there
    CHECK (Run ({ "plot", set, (folder / "a.pdf").string () }).exitStatus == 2);
}
