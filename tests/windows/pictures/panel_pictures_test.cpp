#include "gdiplus_objects.h"
#include "panel_layout.h"
#include "panel_stage.h"
#include "picture_surface.h"
#include "script.h"
#include "wide_text.h"
#include <algorithm>
#include <cstdlib>
#include <doctest/doctest.h>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// The panel through GDI+ beside the same states as the building machine's own program has drawn them.

using namespace tessaly;

namespace
{

/// Text and smoothed lines, which every system draws its own way.
std::vector<ZRect> LeftOut (const std::string& state)
{
    std::vector<ZRect> rects{ layout::kCompGraph, layout::kEqGraph, layout::kNameButton };
    if (state == "dialog")
        rects.push_back (layout::kDialogItems[2].rect);
    if (state == "about")
        rects.insert (rects.end (), { layout::kAboutLine1, layout::kAboutLine2 });
    return rects;
}

int Distance (std::uint32_t a, std::uint32_t b)
{
    int most = 0;
    for (int shift = 0; shift < 32; shift += 8)
        most = std::max (most, std::abs (static_cast<int> (a >> shift & 255) - static_cast<int> (b >> shift & 255)));
    return most;
}

/// The other system's picture, drawn pixel by pixel on a surface of this one.
std::vector<std::uint32_t> ReadPixels (const std::string& path, ZPoint size)
{
    PictureSurface surface (size.x, size.y, 1.0);
    Gdiplus::GpImage* image = nullptr;
    REQUIRE (gdip::GdipLoadImageFromFile (WideText (path).c_str (), &image) == Gdiplus::Ok);
    const GdiplusObject<Gdiplus::GpImage> owner (image);
    gdip::GdipDrawImageRectRectI (surface.GetGraphics (), image, 0, 0, size.x, size.y, 0, 0, size.x, size.y,
                                  Gdiplus::UnitPixel, nullptr, nullptr, nullptr);
    return PixelsOf (surface);
}

std::string ReadScript ()
{
    std::ifstream file (TESSALY_STATES);
    return { std::istreambuf_iterator<char> (file), {} };
}

struct Counts
{
    int states = 0;
    int equal = 0;
    int rounded = 0; // a step off, or two, as blends over blends are rounded
    int differ = 0;
    int leftOut = 0;
};

void Compare (const std::vector<std::uint32_t>& ours, const std::vector<std::uint32_t>& theirs, ZPoint size,
              std::int32_t scale, const std::vector<ZRect>& leftOut, Counts& counts)
{
    REQUIRE (ours.size () == theirs.size ());
    ++counts.states;
    for (std::size_t i = 0; i < ours.size (); ++i)
    {
        const auto pixel = static_cast<std::int32_t> (i);
        const int distance = Distance (ours[i], theirs[i]);
        const ZPoint place{ pixel % size.x / scale, pixel / size.x / scale };
        if (std::ranges::any_of (leftOut, [place] (const ZRect& rect) { return rect.Contains (place); }))
            ++counts.leftOut;
        else if (distance == 0)
            ++counts.equal;
        else if (distance <= 2)
            ++counts.rounded;
        else
            ++counts.differ;
    }
}

} // namespace

TEST_CASE ("Pictures: the panel is the same on both systems, pixel by pixel")
{
    for (const std::int32_t scale : { 1, 2 })
    {
        Counts counts;
        const ZPoint size{ layout::kPanelWidth * scale, layout::kPanelHeight * scale };
        stage::PanelStage panel (scale);
        panel.Window ().Wait (300);
        stage::Play (ReadScript (), panel,
                     [&] (const std::string& name)
                     {
                         CAPTURE (name);
                         const auto path =
                             std::string (TESSALY_NATIVE_PICTURES) + "/" + std::to_string (scale) + "/" + name + ".png";
                         const int before = counts.differ;
                         Compare (PixelsOf (panel.Window ().Surface ()), ReadPixels (path, size), size, scale,
                                  LeftOut (name), counts);
                         CHECK (counts.differ == before);
                     });
        MESSAGE ("scale " << scale << ": " << counts.states << " states, " << counts.equal << " pixels equal, "
                          << counts.rounded << " rounded otherwise, " << counts.differ << " differ, " << counts.leftOut
                          << " left out");
        CHECK (counts.states == 12);
        CHECK (counts.rounded < counts.equal / 50);
    }
}
