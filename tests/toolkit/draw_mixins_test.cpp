#include "draw_anim.h"
#include "draw_ascii_font.h"
#include "draw_back.h"
#include "draw_font.h"
#include "draw_knob.h"
#include "draw_text.h"
#include "recording_canvas.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

using Calls = std::vector<std::string>;

/// A surface, an image "art" and what a drawing call leaves on the surface.
struct Sheet
{
    RecordingCanvasImp surface;
    ZOnscreenCanvas canvas{ surface };
    ZBitmap art = NamedBitmap ("art");

    template <typename MixIn, typename... Rest>
    Calls Active (const MixIn& mixIn, const Rest&... rest)
    {
        mixIn.DrawActive (canvas, 0, rest...);
        return surface.Take ();
    }
    template <typename MixIn, typename... Rest>
    Calls Inactive (const MixIn& mixIn, const Rest&... rest)
    {
        mixIn.DrawInactive (canvas, 0, rest...);
        return surface.Take ();
    }
};

} // namespace

TEST_CASE ("ZDrawBack: each look draws its own kind, and a kind switched off keeps its data")
{
    Sheet sheet;
    ZDrawBack back;
    const ZRect rect{ 1, 2, 11, 22 };
    CHECK (sheet.Active (back, rect).empty ());
    back.SetBitmapActive (&sheet.art, { 5, 6 });
    back.SetColorAlphaInactive ({ 1, 2, 3 }, 40);
    const Calls image{ "DrawBitmap art 1,2,11,22 from 5,6" };
    CHECK (sheet.Active (back, rect) == image);
    CHECK (sheet.Inactive (back, rect) == Calls{ "SetColor 1,2,3,40", "FillRect 1,2,11,22" });

    back.SetKindActive0 ();
    CHECK (sheet.Active (back, rect).empty ());
    back.SetKindActive1 ();
    CHECK (sheet.Active (back, rect) == image);

    back.SetColorInactive ({ 7, 8, 9 });
    CHECK (sheet.Inactive (back, rect) == Calls{ "SetColor 7,8,9,255", "FillRect 1,2,11,22" });
    back.SetKindInactive3 ();
    CHECK (sheet.Inactive (back, rect) == Calls{ "SetColor 7,8,9,40", "FillRect 1,2,11,22" });

    sheet.art.SetTransparentColor ({ 255, 0, 255 });
    CHECK (sheet.Active (back, rect) == Calls{ "DrawBitmapKeyed art 1,2,11,22 from 5,6" });
}

TEST_CASE ("ZDrawAnim: a frame is looked up in the strip, at its own height or that of the rectangle, within the strip")
{
    Sheet sheet;
    ZDrawAnim anim;
    const ZRect rect{ 10, 10, 50, 50 };
    anim.SetAnimActive (&sheet.art, 8, 0, { 3, 4 });
    CHECK (sheet.Active (anim, rect, 5) == Calls{ "DrawBitmap art 10,10,50,50 from 3,204" });
    CHECK (sheet.Active (anim, rect, -3) == Calls{ "DrawBitmap art 10,10,50,50 from 3,4" });
    CHECK (sheet.Active (anim, rect, 1000) == Calls{ "DrawBitmap art 10,10,50,50 from 3,284" });
    anim.SetStretchInactive (&sheet.art, 8, 7, 9, { 3, 4 });
    CHECK (sheet.Inactive (anim, rect, 2) == Calls{ "StretchBitmap art 10,10,50,50 from 3,22,10,31" });
    anim.SetStretchInactive (&sheet.art, 8, 0, 0, { 3, 4 });
    CHECK (sheet.Inactive (anim, rect, 1) == Calls{ "StretchBitmap art 10,10,50,50 from 3,44,43,84" });
    anim.SetAnimActive (&sheet.art, 0, 10, {});
    CHECK (sheet.Active (anim, rect, 3) == Calls{ "DrawBitmap art 10,10,50,50 from 0,0" });
}

TEST_CASE ("Drawing mix-ins: without a bitmap every kind that needs one draws nothing")
{
    Sheet sheet;
    const ZRect rect{ 0, 0, 10, 10 };
    ZDrawBack back;
    back.SetBitmapActive (nullptr, {});
    CHECK (sheet.Active (back, rect).empty ());
    ZDrawKnob knob;
    knob.SetBitmapActive (nullptr, {});
    CHECK (sheet.Active (knob, rect).empty ());
    ZDrawAnim anim;
    anim.SetAnimActive (nullptr, 2, 0, {});
    CHECK (sheet.Active (anim, rect, 0).empty ());
    anim.SetKindActive2 ();
    CHECK (sheet.Active (anim, rect, 0).empty ());
    ZDrawFont font;
    font.SetFontActive (nullptr, "abc", 5, 5, 0, {});
    CHECK (sheet.Active (font, rect, "a").empty ());
    ZDrawAsciiFont ascii;
    ascii.SetFontActive (nullptr, 5, 5, 0, {});
    CHECK (sheet.Active (ascii, rect, "a").empty ());
    CHECK_FALSE (sheet.canvas.IsModified ());
}

TEST_CASE ("ZDrawText: writes in a size or in a named font, whose name is cut at a whole character")
{
    Sheet sheet;
    ZDrawText text;
    const ZRect rect{ 0, 0, 90, 20 };
    text.SetFontActive ({ 1, 2, 3 }, 18, 3, kBold);
    CHECK (sheet.Active (text, rect, "x") ==
           Calls{ "SetColor 1,2,3,255", "SetFontSize 3 1", "DrawText 'x' 0,0,90,20 18" });
    text.SetNamedFontInactive ({ 1, 2, 3 }, 20, "Serif", 17, kItalic);
    CHECK (sheet.Inactive (text, rect, "x") ==
           Calls{ "SetColor 1,2,3,255", "SetFont Serif 17 2", "DrawText 'x' 0,0,90,20 20" });
    text.SetNamedFontActive ({}, 0, std::string (300, 'n'), 9, 0);
    CHECK (text.GetRecordActive ().fontName.size () == 255);
    text.SetNamedFontActive ({}, 0, std::string (254, 'n') + "\xC3\xA4", 9, 0);
    CHECK (text.GetRecordActive ().fontName.size () == 254);
    text.SetKindActive0 ();
    CHECK (sheet.Active (text, rect, "x").empty ());
}

TEST_CASE ("Bitmap fonts: a row stands left, in the middle or, without a word about it, at the right and the bottom")
{
    Sheet sheet;
    ZDrawAsciiFont font;
    const ZRect rect{ 7, 3, 107, 43 };
    const auto firstGlyphAt = [&] (std::int32_t alignment)
    {
        font.SetFontActive (&sheet.art, 10, 20, alignment, {});
        const auto call = sheet.Active (font, rect, "abc").front ();
        return call.substr (15, call.find (" from") - 15);
    };
    CHECK (firstGlyphAt (kAlignLeft | kAlignTop) == "7,3,17,23");
    CHECK (firstGlyphAt (kAlignCenter | kAlignMiddle) == "42,13,52,33"); // 35 from the left
    CHECK (firstGlyphAt (0) == "77,23,87,43");
    CHECK (firstGlyphAt (kAlignRight | kAlignBottom) == "77,23,87,43");
    CHECK (firstGlyphAt (kAlignLeft | kAlignCenter) == "7,23,17,43");

    font.SetFontActive (&sheet.art, 10, 20, kAlignCenter, {}); // wider than the rectangle: half of -5, towards zero
    CHECK (sheet.Active (font, ZRect{ 0, 0, 5, 20 }, "a") == Calls{ "DrawBitmap art -2,0,8,20 from 60,20" });
}

TEST_CASE ("Bitmap fonts: one finds its glyphs in its list, the other by the two halves of the code")
{
    Sheet sheet;
    const ZRect rect{ 0, 0, 100, 10 };
    ZDrawFont font;
    font.SetFontActive (&sheet.art, "abca", 10, 10, kAlignLeft, { 1, 2 });
    CHECK (sheet.Active (font, rect, "ca?") == Calls{ "DrawBitmap art 0,0,10,10 from 1,22",
                                                      "DrawBitmap art 10,0,20,10 from 1,2",
                                                      "DrawBitmap art 20,0,30,10 from 1,2" });
    ZDrawAsciiFont ascii;
    ascii.SetFontInactive (&sheet.art, 10, 10, kAlignLeft, { 1, 2 });
    CHECK (sheet.Inactive (ascii, rect, "\xFF") == Calls{ "DrawBitmap art 0,0,10,10 from 151,152" });

    sheet.canvas.SetModified (false);
    CHECK (sheet.Active (font, rect, "").empty ());
    CHECK (sheet.Inactive (ascii, rect, "").empty ());
    CHECK_FALSE (sheet.canvas.IsModified ());
    font.SetFontActive (&sheet.art, std::string (300, 'x'), 10, 10, 0, {});
    CHECK (font.GetRecordActive ().characters.size () == 255);
}
