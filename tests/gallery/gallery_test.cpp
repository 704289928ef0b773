#include "built_in_script.h"
#include "cairo_bitmap_imp.h"
#include "gallery_window.h"
#include "pixel_picture.h"
#include "program_run.h"
#include "script.h"
#include "temp_folder.h"

#include <doctest/doctest.h>
#include <filesystem>
#include <span>

using namespace tessaly;
using namespace tessaly::gallery;
using namespace tessaly::test;

namespace
{

/// What the built-in script leaves, worked out by hand from what its orders say.
// clang-format off
constexpr std::string_view kFinalValues =
    "Gain = 5.8 dB\n"       // reset to 0, then 12 pixels of a hundredth of 48 dB
    "Pan = -7.2\n"          // 18 right and 6 below the centre: 41.6 of 300 degrees from the end, of 20
    "Shape = Square\n"      // 45 degrees right of upright, between its positions 2 and 3, nearer to 3
    "Polarity = Inverted\n" // dragged from one end to the other
    "Level = 72 %\n"        // set by the host at last
    "Depth = 29 %\n"        // a page at once, one after 500 ms, then one every second tick of 30 ms
    "Blend = 82 %\n"        // the thumb's middle at 68 of 96 pixels, a page of ten steps and one step
    "Slope = 24 dB\n"
    "Tap = On\nStamp = On\nPad = On\n"
    "Latch2 = On\nLatch3 = Off\nLatch4 = On\n"
    "Band = High\n"
    "Pitch = 7.2\n"         // 87.2 from the clipboard without its first digit
    "Time = 87.2 ms\n"      // typed as 87.25
    "Ratio =   9.70\n"      // 30 pixels of a hundredth of 19 above 4
    "Note = F\n"
    "Wave = Sine\n"         // one above the triangle
    "Power = Off\n";
// clang-format on

} // namespace

TEST_CASE ("The gallery writes all its pictures and ends with the values that its script has set")
{
    const TempFolder folder;
    const auto run = RunProgram (GALLERY, { "--scale", "1.5", "--output", folder.Path ().string () });
    CHECK (run.exitStatus == 0);
    CHECK (run.err == "");
    CHECK (folder.FileCount () == 10);
    for (const auto& entry : std::filesystem::directory_iterator (folder.Path ()))
    {
        const auto png = ReadFile (entry.path ());
        const ZCairoBitmapImp picture ("picture", std::as_bytes (std::span (png)));
        CHECK (picture.GetWidth () == 1335);
        CHECK (picture.GetHeight () == 828);
    }
    CHECK (run.out.ends_with (kFinalValues));
}

TEST_CASE ("What is painted bit by bit is what a pass over everything paints, and then nothing is left to paint")
{
    for (const double scale : { 1.0, 1.25, 1.5 })
    {
        GalleryWindow window (scale);
        stage::Play (kBuiltInScript, window,
                     [&] (const std::string& name)
                     {
                         CAPTURE (scale);
                         CAPTURE (name);
                         const Picture before (window.Window ().Surface ());
                         window.Editor ().Invalidate (true);
                         CHECK (window.Window ().Paint ());
                         CHECK (Picture (window.Window ().Surface ()).IsLike (before, 0));
                         CHECK_FALSE (window.Window ().Paint ());
                     });
    }
}

TEST_CASE ("A fault in the arguments or in a script is told and nothing is written")
{
    const TempFolder folder;
    const TempFolder pictures;
    const auto script = [&folder] (const char* text) { return folder.Write ("script", text).string (); };
    const auto fails = [&pictures] (std::vector<std::string> arguments, std::string_view message)
    {
        arguments.insert (arguments.end (), { "--output", pictures.Path ().string () });
        const auto run = RunProgram (GALLERY, arguments);
        CAPTURE (run.err);
        CHECK (run.exitStatus != 0);
        CHECK (run.err.find (message) != std::string::npos);
        CHECK (run.out == "");
        CHECK (pictures.FileCount () == 0);
    };
    fails ({ "--scale", "3" }, "--scale");
    fails ({ "--script", "/nowhere" }, "/nowhere");
    fails ({ "--script", script ("snap one\n\npoint moon\n") }, "line 3: there is no place \"moon\"");
    fails ({ "--script", script ("snap one\nsnap one\n") }, "line 2: there is a picture \"one\" already");
    fails ({ "--script", script ("snap ../one\n") }, "line 1: ");
    fails ({ "--script", script ("drag 10\n") }, "line 1: ");
    fails ({ "--script", script ("idle 1e300\n") }, "line 1: ");
    fails ({ "--script", script ("set Gain nan\n") }, "line 1: ");
    fails ({ "--script", script ("release now\n") }, "line 1: \"now\" is too much");
}
