#include "automation.h"
#include "loaded_strip.h"
#include "render_error.h"
#include <cmath>

using namespace tessaly::render;
using namespace tessaly::test;

namespace
{

struct AutomationFile : LoadedStrip
{
    ParameterNames names{ parameters };
    TempFolder folder;

    /// Each row as its time, its parameter's id and its step.
    std::string Read (const std::string& content) const
    {
        std::string rows;
        for (const auto& [seconds, setting] : ReadAutomation (parameters, names, folder.Write ("moves.csv", content)))
            rows += doctest::toString (seconds).c_str () + (" " + std::to_string (setting.id) + " ") +
                    std::to_string (std::lround (parameters.ToPlain (setting.id, setting.normalized))) + "\n";
        return rows;
    }
};

} // namespace

TEST_CASE_FIXTURE (AutomationFile, "Automation comes by time, at one time in the file's order")
{
    CHECK (Read ("Time (s),Parameter,Value\n2.5,Morph,60\n0,mid g,-3\n0.25,Mid F,1k\n0.25,Mid F,2k\n0.25,Mid G,3\n") ==
           "0 13 150\n0.25 12 72\n0.25 12 84\n0.25 13 210\n2.5 20 60\n");
}

TEST_CASE_FIXTURE (AutomationFile, "Automation is read as table programs and editors on any system write it")
{
    CHECK (Read ("\xEF\xBB\xBF\"Time\",\"Parameter\",\"Value\"\r\n"
                 "# a comment, with a comma\r\n"
                 "\r\n"
                 " 1e-1 , \"Mid F\" , \"2k\" \r\n"
                 "3,Morph,120") == "0.1 12 84\n3 20 120\n"); // no line end
    CHECK_THROWS_WITH_AS (Read ("time\n"), doctest::Contains ("no rows"), RenderError);
}

TEST_CASE ("Of settings at one sample the last of each parameter stays, in the order of these")
{
    const auto kept = LastOfEach ({ { 12, 0.1 }, { 20, 0.5 }, { 12, 0.2 }, { 13, 0.3 } });
    REQUIRE (kept.size () == 3);
    CHECK (kept[0].id == 20);
    CHECK (kept[1].id == 12);
    CHECK (kept[1].normalized == 0.2);
    CHECK (kept[2].id == 13);
}
