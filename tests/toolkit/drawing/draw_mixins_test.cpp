#include "draw_anim.h"
#include "draw_ascii_font.h"
#include "draw_back.h"
#include "draw_font.h"
#include "draw_knob.h"
#include "draw_text.h"
#include "pane_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

/// What a drawing call leaves on the surface.
struct Sheet : PaneFixture
{
    Calls Active (const auto& mixIn, const auto&... rest)
    {
        mixIn.DrawActive (canvas, 0, rest...);
        return surface.Take ();
    }
    Calls Inactive (const auto& mixIn, const auto&... rest)
    {
        mixIn.DrawInactive (canvas, 0, rest...);
        return surface.Take ();
    }
};

} // namespace

TEST_CASE ("ZDrawAnim: a frame is looked up in the strip, at its own height or that of the rectangle, within the strip")
{
    Sheet sheet;
    ZDrawAnim anim;
    const ZRect rect{ 10, 10, 50, 50 };
    anim.SetAnimActive (&sheet.strip, 8, 0, { 3, 4 });
    CHECK (sheet.Active (anim, rect, 5) == Calls{ "DrawBitmap strip 10,10,50,50 from 3,204" });
    CHECK (sheet.Active (anim, rect, -3) == Calls{ "DrawBitmap strip 10,10,50,50 from 3,4" });
    CHECK (sheet.Active (anim, rect, 1000) == Calls{ "DrawBitmap strip 10,10,50,50 from 3,284" });
    anim.SetStretchInactive (&sheet.strip, 8, 7, 9, { 3, 4 });
    CHECK (sheet.Inactive (anim, rect, 2) == Calls{ "StretchBitmap strip 10,10,50,50 from 3,22,10,31" });
    anim.SetStretchInactive (&sheet.strip, 8, 0, 0, { 3, 4 });
    CHECK (sheet.Inactive (anim, rect, 1) == Calls{ "StretchBitmap strip 10,10,50,50 from 3,44,43,84" });
    anim.SetAnimActive (&sheet.strip, 0, 10, {}); // no frame at all
    CHECK (sheet.Active (anim, rect, 3) == Calls{ "DrawBitmap strip 10,10,50,50 from 0,0" });
    anim.SetAnimActive (nullptr, 2, 0, {}); // without an image nothing is drawn
    CHECK (sheet.Active (anim, rect, 0).empty ());
    ZDrawBack back;
    back.SetBitmapActive (nullptr, {});
    CHECK (sheet.Active (back, rect).empty ());
    ZDrawKnob knob;
    knob.SetBitmapActive (&sheet.strip, { 1, 2 });
    CHECK (sheet.Active (knob, rect) == Calls{ "DrawBitmap strip 10,10,50,50 from 1,2" });
    knob.SetBitmapActive (nullptr, {});
    CHECK (sheet.Active (knob, rect).empty ());
}

TEST_CASE ("ZDrawText: writes in a named font, whose name is cut at a whole character")
{
    Sheet sheet;
    ZDrawText text;
    text.SetNamedFontInactive ({ 1, 2, 3 }, 20, std::string (254, 'n') + "\u00e4", 17, kItalic);
    CHECK (sheet.Inactive (text, ZRect{ 0, 0, 90, 20 }, "x") ==
           Calls{ "SetColor 1,2,3,255", "SetFont " + std::string (254, 'n') + " 17 2", "DrawText 'x' 0,0,90,20 20" });
}

TEST_CASE ("Bitmap fonts: one finds its glyphs in its list, the other by the two halves of the code")
{
    Sheet sheet;
    const ZRect rect{ 0, 0, 100, 10 };
    ZDrawFont font;
    font.SetFontActive (nullptr, "abc", 5, 5, 0, {});
    CHECK (sheet.Active (font, rect, "a").empty ());
    font.SetFontActive (&sheet.strip, "abca", 10, 10, kAlignLeft, { 1, 2 });
    CHECK (sheet.Active (font, rect, "ca?") == Calls{ "DrawBitmap strip 0,0,10,10 from 1,22",
                                                      "DrawBitmap strip 10,0,20,10 from 1,2",
                                                      "DrawBitmap strip 20,0,30,10 from 1,2" });
    ZDrawAsciiFont ascii;
    ascii.SetFontInactive (&sheet.strip, 10, 10, kAlignLeft, { 1, 2 });
    CHECK (sheet.Inactive (ascii, rect, "\xFF") == Calls{ "DrawBitmap strip 0,0,10,10 from 151,152" });
}
