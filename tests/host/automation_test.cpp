#include "automation.h"
#include "loaded_strip.h"
#include "render_error.h"
#include "temp_folder.h"

#include <doctest/doctest.h>

using namespace tessaly::render;
using namespace tessaly::test;

namespace
{

constexpr Steinberg::Vst::ParamID kMidF = 12, kMidG = 13, kMorph = 20;

struct AutomationFile : LoadedStrip
{
    ParameterNames names{ parameters };
    TempFolder folder;

    std::vector<TimedSetting> Read (const std::string& content) const
    {
        return ReadAutomation (parameters, names, folder.Write ("moves.csv", content));
    }

    std::string Refusal (const std::string& content) const
    {
        try
        {
            Read (content);
        }
        catch (const RenderError& error)
        {
            return error.what ();
        }
        return "";
    }

    double Step (const TimedSetting& row) const { return parameters.ToPlain (row.setting.id, row.setting.normalized); }
};

} // namespace

TEST_CASE_FIXTURE (AutomationFile, "Rows of automation come by time, and in the file's order at one time")
{
    const auto rows = Read ("Time (s),Parameter,Value\n"
                            "2.5,Morph,60\n"
                            "0,mid g,-3\n"
                            "0.25,Mid F,1k\n"
                            "0.25,Mid F,2k\n"
                            "0.25,Mid G,3\n");
    REQUIRE (rows.size () == 5);
    CHECK (rows[0].setting.id == kMidG);
    CHECK (Step (rows[1]) == 72); // 1 kHz before 2 kHz
    CHECK (Step (rows[2]) == 84);
    CHECK (rows[3].setting.id == kMidG);
    CHECK (rows[4].seconds == 2.5);
}

TEST_CASE_FIXTURE (AutomationFile, "Automation is read as table programs and editors on any system write it")
{
    const auto rows = Read ("\xEF\xBB\xBF\"Time\",\"Parameter\",\"Value\"\r\n"
                            "# a comment, with a comma\r\n"
                            "\r\n"
                            " 1e-1 , \"Mid F\" , \"2k\" \r\n"
                            "3,Morph,120"); // no line end
    REQUIRE (rows.size () == 2);
    CHECK (rows[0].seconds == 0.1);
    CHECK (Step (rows[0]) == 84);
    CHECK (Step (rows[1]) == 120);
    CHECK (Read ("").empty ());
}

TEST_CASE_FIXTURE (AutomationFile, "A bad row is refused by file and line")
{
    const std::string file = (folder / "moves.csv").string ();
    CHECK (Refusal ("time,parameter,value\n\n1,Mid F\n").starts_with (file + ", line 3: a row has three fields"));
    CHECK (Refusal ("1,Mid F,1k\n-1,Mid F,2k\n") == file + ", line 2: \"-1\" is no time in seconds");
    for (const char* bad : { "1,Mid F,2,5\n", "one,Mid F,1k\n", "inf,Mid F,1k\n", "1,Mid F,loud\n", "1,Medium F,1k\n" })
        CHECK (Refusal (bad).starts_with (file + ", line 1: "));
    CHECK_THROWS_AS (ReadAutomation (parameters, names, folder / "nowhere.csv"), RenderError);
    CHECK_THROWS_AS (ReadAutomation (parameters, names, folder.Path ()), RenderError);
}

TEST_CASE ("Of settings at one sample the last of each parameter stays, in the order of these")
{
    const auto kept = LastOfEach ({ { kMidF, 0.1 }, { kMorph, 0.5 }, { kMidF, 0.2 }, { kMidG, 0.3 } });
    REQUIRE (kept.size () == 3);
    CHECK (kept[0].id == kMorph);
    CHECK (kept[1].id == kMidF);
    CHECK (kept[1].normalized == 0.2);
    CHECK (kept[2].id == kMidG);
}
