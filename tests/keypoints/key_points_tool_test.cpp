#include "environment_variable.h"
#include "panel.h"
#include "program_run.h"
#include "set_file.h"
#include "state_bytes.h"
#include "state_chunk.h"
#include "temp_folder.h"
#include <doctest/doctest.h>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

// The program as a user runs it.

using namespace tessaly;
using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

ProgramRun Run (const Words& words)
{
    return RunProgram (KEYPOINTS, words);
}

bool Contains (const std::string& text, const std::string& part)
{
    return text.find (part) != text.npos;
}

const std::string kHeader = "Attack,Release,Ratio,Knee,Drive Offset,Makeup Amount,Side Chain F,Side Chain G,"
                            "Side Chain Q,High F,High G,Mid F,Mid G,Mid Q,Low F,Low G,Total Gain\n";
// The steps, by the scales: 221, 164, 120, 1, 100, 100, 60, 180, 20, 112, 180, 84, 180, 20, 32, 180, 180
const std::string kDefaults = "12.49,100.1,INF,Middle,0.5,0.5,500,0,1.59,10k,0,2k,0,1.59,100,0,0\n";

/// Cell of a key-point file, row and column from 0.
int StepAt (const std::string& bytes, std::size_t row, std::size_t column)
{
    const auto at = 32 + 40 * row + 2 * column;
    return static_cast<unsigned char> (bytes[at]) * 256 + static_cast<unsigned char> (bytes[at + 1]);
}

/// A key-point file put together by hand, every step of row k the number k + 60, zeros elsewhere.
std::string SetBytes ()
{
    std::string bytes = "KPRD" + std::string (508, '\0');
    for (std::size_t row = 0; row < 9; ++row)
        for (std::size_t column = 0; column < 17; ++column)
            bytes[32 + 40 * row + 2 * column + 1] = static_cast<char> (column == 3 ? row % 3 : row + 60);
    return bytes;
}

} // namespace

TEST_CASE ("keypoints: make writes the nearest steps, big-endian, and show gives a table that makes the same file")
{
    const TempFolder folder;
    const auto table =
        folder.Write ("t.csv", "\xEF\xBB\xBF# soft first\r\n" + kHeader + kDefaults +
                                   ",,,,,,,,,,,,,,,,\n"
                                   "80,\" 300 \",2.0,soft,0,1,20,-18,16,1.01k,18,20K,+3,0.5,1000,.1,-.1\n"
                                   "\n" +
                                   kDefaults + "\n\n");
    const auto set = (folder / "a.kpd").string ();
    const auto made = Run ({ "make", set, "--from", table.string () });
    CHECK (made.err == "");
    REQUIRE (made.exitStatus == 0);

    const auto bytes = ReadFile (set);
    REQUIRE (bytes.size () == 512);
    CHECK (bytes.substr (0, 32) == "KPRD" + std::string (28, '\0'));
    const std::vector<int> defaults{ 221, 164, 120, 1, 100, 100, 60, 180, 20, 112, 180, 84, 180, 20, 32, 180, 180 };
    for (std::size_t column = 0; column < defaults.size (); ++column)
    {
        CHECK (StepAt (bytes, 0, column) == defaults[column]);
        CHECK (StepAt (bytes, 1, column) == 0xFFFF); // fields all empty
        CHECK (StepAt (bytes, 3, column) == 0xFFFF); // a blank line
        CHECK (StepAt (bytes, 4, column) == defaults[column]);
        CHECK (StepAt (bytes, 8, column) == 0xFFFF); // no line
    }
    const std::vector<int> third{ 0, 0, 200, 4, 0, 60, 72, 360, 124, 210, 0, 72, 181, 179 };
    for (std::size_t i = 0; i < third.size (); ++i)
        CHECK (StepAt (bytes, 2, i + 3) == third[i]); // from "Knee" on, most of them ends of a scale
    CHECK (bytes.substr (32 + 34, 6) == std::string (6, '\0'));
    CHECK (bytes.substr (392) == std::string (120, '\0'));

    const auto again = (folder / "again.kpd").string ();
    const auto shown = folder.Write ("again.csv", Run ({ "show", set, "--csv" }).out);
    CHECK (Run ({ "make", again, "--from", shown.string () }).exitStatus == 0);
    CHECK (ReadFile (again) == bytes);
}

TEST_CASE ("keypoints: make reads a numbered table in any order of rows and columns")
{
    const TempFolder folder;
    const auto cut = kHeader.find (',');
    const std::string header = kHeader.substr (cut + 1, kHeader.size () - cut - 2) + ",KEY  POINT,attack\n";
    const std::string values =
        kDefaults.substr (kDefaults.find (',') + 1, kDefaults.size () - kDefaults.find (',') - 2);
    const auto table = folder.Write ("t.csv", header + values + ",9,12.49\n\n" + values + ",2,80\n");
    const auto set = (folder / "a.kpd").string ();
    REQUIRE (Run ({ "make", set, "--from", table.string () }).exitStatus == 0);
    const auto bytes = ReadFile (set);
    CHECK (StepAt (bytes, 8, 0) == 221);
    CHECK (StepAt (bytes, 1, 0) == 283);
    CHECK (StepAt (bytes, 0, 0) == 0xFFFF);
}

TEST_CASE ("keypoints: make refuses a bad table with row, column and reason, and writes nothing")
{
    const TempFolder folder;
    const auto refusal = [&] (const std::string& table)
    {
        const auto from = folder.Write ("t.csv", table).string ();
        const auto run = Run ({ "make", (folder / "a.kpd").string (), "--from", from });
        CHECK (run.exitStatus == 1);
        CHECK (folder.FileCount () == 1);
        return run.err;
    };
    const auto with = [&] (const std::string& from, const std::string& to)
    {
        auto row = kDefaults;
        return kHeader + kDefaults + row.replace (row.find (from), from.size (), to);
    };
    CHECK (Contains (refusal (with ("12.49", "fast")),
                     "row 2 (line 3), \"Attack\": \"fast\" is no value; it takes 0.092 to 80.00 ms"));
    CHECK (Contains (refusal (with ("Middle", "Mid")), "\"Knee\": \"Mid\" is no value; it takes Soft, Middle or Hard"));
    CHECK (Contains (refusal (with ("100.1", "1.2.3")), "\"Release\""));
    CHECK (Contains (refusal (with ("12.49", "")), "\"Attack\": no value, in a row that has others"));
    CHECK (Contains (refusal (with (",10k", "")), "line 3: there are 16 fields where the header has 17"));
    std::string ten = kHeader;
    for (int i = 0; i < 10; ++i)
        ten += kDefaults;
    CHECK (Contains (refusal (ten), "row 10 (line 11): a set has nine key points"));
    CHECK (Contains (refusal (""), "empty"));
    CHECK (Contains (refusal ("Attack,Release\n"), "does not name \"Ratio\""));
    CHECK (Contains (refusal ("Attack," + kHeader), "\"Attack\" twice"));
    CHECK (Contains (refusal ("Key point," + kHeader + "0," + kDefaults), "\"0\" is no number from 1 to 9"));
    CHECK (Contains (refusal ("Key point," + kHeader + "3," + kDefaults + "3," + kDefaults), "3 comes twice"));
    CHECK (Run ({ "make", (folder / "a.kpd").string (), "--from", folder.Path ().string () }).exitStatus == 1);
}

TEST_CASE ("keypoints: nothing is overwritten without --force, and a file in the making leaves nothing behind")
{
    const TempFolder folder;
    const auto table = folder.Write ("t.csv", kHeader + kDefaults).string ();
    const auto set = folder.Write ("a.kpd", "mine").string ();
    const auto refused = Run ({ "make", set, "--from", table });
    CHECK (refused.exitStatus == 1);
    CHECK (Contains (refused.err, "--force"));
    CHECK (ReadFile (set) == "mine");
    CHECK (Run ({ "make", set, "--from", table, "--force" }).exitStatus == 0);
    CHECK (ReadFile (set).size () == 512);
    CHECK (Run ({ "make", (folder / "no" / "a.kpd").string (), "--from", table }).exitStatus == 1);
    CHECK (folder.FileCount () == 2);
}

TEST_CASE ("keypoints: show prints nine rows, marks empty ones, and writes JSON that a program can read")
{
    const TempFolder folder;
    auto bytes = SetBytes ();
    bytes[32 + 40 * 4] = bytes[32 + 40 * 4 + 1] = '\xFF'; // one cell makes row 5 empty
    const auto set = folder.Write ("a.kpd", bytes).string ();
    const auto shown = Run ({ "show", set }).out;
    CHECK (Contains (shown, "\n5  (empty)\n"));

    const auto json = nlohmann::json::parse (Run ({ "show", set, "--json" }).out);
    CHECK (json["keyPoints"].size () == 9);
    CHECK (json["keyPoints"][4]["values"].is_null ());
    CHECK (json["keyPoints"][0]["values"]["Side Chain F"] == "500.0"); // step 60
    CHECK (json["keyPoints"][0]["steps"]["Side Chain F"] == 60);

    CHECK (Run ({ "show", (folder / "gone.kpd").string () }).exitStatus == 1);
    CHECK (Contains (Run ({ "show", folder.Write ("b.kpd", "KPRD").string () }).err, "512"));
    CHECK (Run ({ "show", set, "--csv", "--json" }).exitStatus != 0);
}

TEST_CASE ("keypoints: check says of each file whether the plug-in would take it")
{
    const TempFolder folder;
    const auto good = folder.Write ("a.KPD", SetBytes ()).string ();
    const auto run = Run ({ "check", good, folder.Write ("long.kpd", SetBytes () + "x").string (),
                            folder.Write ("magic.kpd", "X" + SetBytes ().substr (1)).string (),
                            folder.Write ("a.txt", SetBytes ()).string (), (folder / "gone.kpd").string (), "/dev" });
    CHECK (run.exitStatus == 1);
    CHECK (Contains (run.out, "a.KPD: would be taken, 9 of 9 key points"));
    CHECK (Contains (run.out, "row 2, \"Side Chain Q\": step 61 is beyond the parameter"));
    for (const char* reason : { "long.kpd: would not be taken: it is not 512", "magic.kpd: would not",
                                "a.txt: would not", "gone.kpd: would not", "/dev: would not" })
        CHECK (Contains (run.out, reason));
    CHECK (Run ({ "check", good }).exitStatus == 0);
}

TEST_CASE ("keypoints: capture makes a key point of each state, and an empty one of a dash")
{
    const TempFolder folder;
    std::vector<float> low (22, 0.0f);
    std::vector<float> high (22, 1.0f);
    high[7] = std::numeric_limits<float>::infinity (); // as good as 1
    high[4] = 0.5f;                                    // "Middle"
    const auto first = folder.Write ("low.state", State (low, KeyPoints ("x", 0))).string ();
    const auto last = folder.Write ("high.state", State (high, KeyPoints ("x", 0))).string ();
    const auto set = (folder / "a.kpd").string ();
    const auto run = Run ({ "capture", set, first, "-", last });
    CHECK (run.err == "");
    REQUIRE (run.exitStatus == 0);
    const auto bytes = ReadFile (set);
    CHECK (StepAt (bytes, 0, 0) == 57);
    CHECK (StepAt (bytes, 1, 0) == 0xFFFF);
    CHECK (StepAt (bytes, 2, 0) == 283);
    CHECK (StepAt (bytes, 2, 3) == 1);

    high[1] = std::numeric_limits<float>::quiet_NaN ();
    const auto other = (folder / "b.kpd").string ();
    CHECK (Contains (Run ({ "capture", other, folder.Write ("nan", State (high, KeyPoints ("x", 0))).string () }).err,
                     "Attack"));
    const auto whole = State (low, KeyPoints ("x", 0));
    for (const std::size_t length : { 4UL, 50UL, 724UL, 782UL }) // the last ahead of its values, and within them
        CHECK (Run ({ "capture", other, folder.Write ("short", whole.substr (0, length)).string () }).exitStatus == 1);
    CHECK (Run ({ "capture", other, "-", "-", "-", "-", "-", "-", "-", "-", "-", first }).exitStatus != 0);
    CHECK_FALSE (fs::exists (other));
}

TEST_CASE ("keypoints: install puts a set where list and path find it")
{
    const TempFolder folder;
    const EnvironmentVariable dirs ("XDG_DATA_DIRS", (folder / "machine").c_str ());
    const EnvironmentVariable home ("XDG_DATA_HOME", (folder / "home").c_str ());
    CHECK (Run ({ "list" }).exitStatus == 1);
    CHECK_FALSE (fs::exists (folder / "home"));

    const auto set = folder.Write ("My Set.kpd", SetBytes ()).string ();
    REQUIRE (Run ({ "install", set }).exitStatus == 0);
    CHECK (ReadFile (folder / "home" / "Hollin/KPRD/My Set.kpd") == SetBytes ());
    CHECK (Run ({ "install", set }).exitStatus == 1);
    CHECK (Run ({ "install", set, "--force" }).exitStatus == 0);
    CHECK (Contains (Run ({ "install", folder.Write ("bad.kpd", "x").string () }).err, "512"));

    fs::create_directories (folder / "machine/Hollin/KPRD/voice");
    folder.Write ("machine/Hollin/KPRD/voice/b.kpd", SetBytes ());
    folder.Write ("machine/Hollin/KPRD/voice/A.kpd", SetBytes ());
    CHECK (Run ({ "list" }).out == "voice/\n  A\n  b\nMy Set\n");
    CHECK (Run ({ "path" }).out == "exists   " + (folder / "machine/Hollin/KPRD").string () + "\nexists   " +
                                       (folder / "home/Hollin/KPRD").string () + "\n");
}

TEST_CASE ("keypoints: a state without a set takes one into the built-in table, whose last row is empty")
{
    constexpr std::size_t kLastRow = 92 + 284 + 9 * 34; // in a state: behind its head, the set's name and nine rows
    const std::vector<float> values (22, 0.0f);
    const Bytes state = State (values, "").substr (0, 92) + Tree (Format () + Chunk ("PRM ", Values (values)));
    KeyPointTable table = keypoints::EmptyTable ();
    table.rows[0] = builtInKeyPoints.rows[4];
    const auto changed =
        keypoints::WithKeyPoints (std::as_bytes (std::span (state)), "one", table, keypoints::Panel ());
    REQUIRE (changed.size () == 812);
    CHECK (changed[kLastRow] == std::byte{ 0xFF });
    CHECK (changed[kLastRow + 33] == std::byte{ 0xFF });
}
