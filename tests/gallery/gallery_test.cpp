#include "cairo_bitmap_imp.h"
#include "drawn_images.h"
#include "exhibits.h"
#include "gallery_window.h"
#include "palette.h"
#include "parameters.h"
#include "pixel_picture.h"
#include "program_run.h"
#include "script.h"
#include "script_error.h"
#include "temp_folder.h"

#include <array>
#include <cmath>
#include <doctest/doctest.h>
#include <filesystem>
#include <span>
#include <tuple>
#include <utility>

using namespace tessaly;
using namespace tessaly::gallery;
using namespace tessaly::test;

namespace
{

void PlayQuietly (std::string_view script, GalleryWindow& window)
{
    Play (script, window, [] (const std::string&) {});
}

ZRect Scaled (const ZRect& rect, double scale)
{
    const auto edge = [scale] (std::int32_t coordinate)
    { return static_cast<std::int32_t> (std::floor (coordinate * scale + 0.5)); };
    return { edge (rect.left), edge (rect.top), edge (rect.right), edge (rect.bottom) };
}

Picture BarePanel (double scale)
{
    const DrawnImages images;
    ZCairoCanvasImp canvas (kPanelWidth, kPanelHeight, scale);
    canvas.DrawBitmapPlain (*ZCairoBitmapImp::Load (images, kPanelImage, scale), { 0, 0, kPanelWidth, kPanelHeight },
                            {});
    return Picture (canvas);
}

/// A picture at scale 1 in blocks of 4 by 4 pixels, each the letter of the colour that their mean is nearest to.
std::string Blocks (const Picture& picture, const ZRect& rect)
{
    constexpr std::array<std::pair<char, ZColor>, 5> kLetters{
        { { '.', kCellColor }, { '#', kGroove }, { 'o', kFace }, { 'B', kAccent }, { 'I', kInk } }
    };
    std::string text;
    for (auto y = rect.top; y < rect.bottom; y += 4)
    {
        text += '\n';
        for (auto x = rect.left; x < rect.right; x += 4)
        {
            std::array<double, 3> mean{};
            for (std::int32_t i = 0; i < 16; ++i)
                for (std::size_t part = 0; part < 3; ++part)
                    mean[part] += (picture.At (x + i % 4, y + i / 4) >> (16 - 8 * part) & 255) / 16.0;
            const auto distance = [&mean] (ZColor color)
            { return std::hypot (mean[0] - color.red, mean[1] - color.green, mean[2] - color.blue); };
            const auto* nearest = kLetters.begin ();
            for (const auto& letter : kLetters)
                if (distance (letter.second) < distance (nearest->second))
                    nearest = &letter;
            text += nearest->first;
        }
    }
    return text;
}

ZRect PlaceOf (std::string_view name)
{
    for (const auto& place : Places ())
        if (name == place.name)
            return place.rect;
    return {};
}

/// What the built-in script leaves, worked out by hand from what its orders say.
// clang-format off
constexpr std::array<std::pair<Parameter, const char*>, kParameterCount> kFinalValues{ {
    { kGain, "5.8 dB" },       // reset to 0, then 12 pixels of a hundredth of 48 dB
    { kPan, "-7.2" },          // 18 right and 6 below the centre: 41.6 of 300 degrees from the end, of 20
    { kShape, "Square" },      // 45 degrees right of upright, between its positions 2 and 3, nearer to 3
    { kPolarity, "Inverted" }, // dragged from one end to the other
    { kLevel, "72 %" },        // set by the host at last
    { kDepth, "29 %" },        // a page at once, one after 500 ms, then one every second tick of 30 ms
    { kBlend, "82 %" },        // the knob's middle at 68 of 96 pixels, a page of ten steps and one step
    { kSlope, "24 dB" },
    { kTap, "On" },
    { kStamp, "On" },
    { kPad, "On" },
    { kLatch2, "On" },
    { kLatch3, "Off" },
    { kLatch4, "On" },
    { kBand, "High" },
    { kPitch, "7.2" },         // 87.2 from the clipboard without its first digit
    { kTime, "87.2 ms" },      // typed as 87.25
    { kRatio, "  9.70" },      // 30 pixels of a hundredth of 19 above 4
    { kNote, "F" },
    { kWave, "Sine" },         // one above the triangle
    { kPower, "Off" },
} };
// clang-format on

} // namespace

TEST_CASE ("The gallery writes all its pictures and ends with the values that its script has set")
{
    for (const auto& [scale, width, height] : { std::tuple{ "1", 890u, 552u }, std::tuple{ "1.5", 1335u, 828u } })
    {
        const TempFolder folder;
        const auto run = RunProgram (GALLERY, { "--scale", scale, "--output", folder.Path ().string () });
        CHECK (run.exitStatus == 0);
        CHECK (run.err == "");
        CHECK (folder.FileCount () == 10);
        for (const auto& entry : std::filesystem::directory_iterator (folder.Path ()))
        {
            const auto png = ReadFile (entry.path ());
            const ZCairoBitmapImp picture ("picture", std::as_bytes (std::span (png)));
            CHECK (picture.GetWidth () == width);
            CHECK (picture.GetHeight () == height);
        }
        ZParameterStorageBase storage;
        FillParameters (storage);
        for (const auto& [index, text] : kFinalValues)
        {
            const auto line = NameOf (storage, index) + " = " + text + "\n";
            CAPTURE (line);
            CHECK (run.out.find (line) != std::string::npos);
        }
    }
}

TEST_CASE ("What is painted bit by bit is what a pass over everything paints, and then nothing is left to paint")
{
    for (const double scale : { 1.0, 1.25, 1.5 })
    {
        GalleryWindow window (scale);
        Play (kBuiltInScript, window,
              [&] (const std::string& name)
              {
                  CAPTURE (scale);
                  CAPTURE (name);
                  const Picture before (window.Surface ());
                  window.Editor ().Invalidate (true);
                  CHECK (window.Paint ());
                  CHECK (Picture (window.Surface ()).IsLike (before, 0));
                  CHECK_FALSE (window.Paint ());
              });
    }
}

TEST_CASE ("Every control shows something in its place")
{
    for (const double scale : { 1.0, 1.5 })
    {
        GalleryWindow window (scale);
        PlayQuietly ("level 0 0.5\nlevel 1 0.5", window);
        const Picture shown (window.Surface ());
        const auto bare = BarePanel (scale);
        for (const auto& place : Places ())
        {
            CAPTURE (std::string (place.name));
            const auto part = Scaled (place.rect, scale);
            CHECK_FALSE (shown.Part (part).IsLike (bare.Part (part), 40));
        }
    }
}

TEST_CASE ("A dial in the middle and a toggle switch look as they always did")
{
    GalleryWindow window (1.0);
    const Picture shown (window.Surface ());
    CHECK (Blocks (shown, PlaceOf ("gain")) == R"(
.....oo#......
...oBoo.###...
..Bo..oo..##..
.oo.oooooo.##.
.B.oooooooo.#.
oo.oooooooo.#.
oooooooooooo.#
oooooooooooo.#
oo.oooooooo.#.
.B.oooooooo.#.
.oo.oooooo.##.
..Bo......##..
...o......#...
..............)");
    CHECK (Blocks (shown, PlaceOf ("polarity")) == R"(
#######
#######
#######
#######
#######
#######
#######
#######
#.....#
.ooooo.
.ooooo.
.oBBBo.
.ooooo.
.ooooo.
.......)");
    PlayQuietly ("click polarity", window);
    CHECK (Blocks (Picture (window.Surface ()), PlaceOf ("polarity")) == R"(
.......
.ooooo.
.ooooo.
.ooooo.
.ooooo.
.ooooo.
#.....#
#######
#######
#######
#######
#######
#######
#######
#######)");
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
    fails ({ "more" }, "more");
    fails ({ "--script", script ("snap one\n\npoint moon\n") }, "line 3: there is no place \"moon\"");
    fails ({ "--script", script ("snap one\nsnap one\n") }, "line 2: there is a picture \"one\" already");
    fails ({ "--script", script ("snap ../one\n") }, "line 1: ");
    fails ({ "--script", script ("drag 10\n") }, "line 1: ");
    fails ({ "--script", script ("idle 1e300\n") }, "line 1: ");
    fails ({ "--script", script ("set Gain nan\n") }, "line 1: ");
    fails ({ "--script", script ("release now\n") }, "line 1: \"now\" is too much");

    const auto nowhere = RunProgram (GALLERY, { "--output", (folder / "missing").string () });
    CHECK (nowhere.exitStatus != 0);
    CHECK (nowhere.err.find ("missing") != std::string::npos);
}
