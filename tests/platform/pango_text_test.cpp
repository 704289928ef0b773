#include "pango_text.h"

#include "cairo_canvas_imp.h"
#include "environment_variable.h"
#include "pixel_picture.h"
#include "program_run.h"
#include <cairo.h>
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using test::Picture;

namespace
{

constexpr ZRect kRect{ 20, 15, 90, 45 };

/// The box of what is drawn of "HHH" at 18 pixels, in pixels of the surface.
ZRect InkAt (std::int32_t alignment, double scale)
{
    ZCairoCanvasImp canvas (120, 60, scale);
    canvas.SetFontSize (0, 0);
    canvas.DrawText ("HHH", kRect, alignment);
    return Picture (canvas).InkBox ();
}

/// Ascent and descent of the system's "Arial" at 18 pixels, asked of Cairo by itself.
cairo_font_extents_t Extents ()
{
    ZCairoCanvasImp canvas (1, 1, 1.0);
    cairo_t* context = cairo_create (canvas.Surface ());
    cairo_font_options_t* options = cairo_font_options_create ();
    cairo_font_options_set_hint_metrics (options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options (context, options);
    cairo_select_font_face (context, "Arial", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size (context, 18.0);
    cairo_font_extents_t extents;
    cairo_font_extents (context, &extents);
    cairo_font_options_destroy (options);
    cairo_destroy (context);
    return extents;
}

} // namespace

TEST_CASE ("text: baseline and ends lie where font and rectangle say, in all nine places at every scale")
{
    const auto extents = Extents ();
    const double top = kRect.top - extents.ascent - extents.descent - 1.0 + 18.0;
    const double bottom = kRect.bottom - 18.0;
    for (const double scale : { 1.0, 1.25, 1.5, 2.0 })
        for (const auto& [vertical, y] :
             { std::pair{ kAlignTop, top }, { kAlignMiddle, (top + bottom) * 0.5 }, { kAlignBottom, bottom } })
        {
            CAPTURE (scale);
            CAPTURE (vertical);
            const ZRect left = InkAt (kAlignLeft | vertical, scale);
            const ZRect center = InkAt (kAlignCenter | vertical, scale);
            const ZRect right = InkAt (kAlignRight | vertical, scale);
            for (const auto& ink : { left, center, right })
                CHECK (ink.bottom == std::lround ((y + extents.ascent) * scale));
            const double bearing = left.left - kRect.left * scale;
            CHECK (bearing >= 0.0);
            CHECK (bearing < 4.0 * scale);
            CHECK (std::abs (center.left + center.right - (kRect.left + kRect.right) * scale) <= 2.0 * scale);
            CHECK (std::abs (kRect.right * scale - right.right - bearing) <= scale);
        }
    CHECK (InkAt (0, 1.0) == InkAt (kAlignCenter | kAlignMiddle, 1.0));
    CHECK (InkAt (63, 1.0) == InkAt (kAlignLeft | kAlignTop, 1.0)); // the first bit wins
}

TEST_CASE ("text: is cut at its rectangle and at the clip, leans in italics, and has a line below if underlined")
{
    const auto paint = [] (std::int32_t style, const ZRect& rect)
    {
        ZCairoCanvasImp canvas (60, 40, 1.0);
        canvas.SetClipRect ({ 25, 0, 60, 40 });
        canvas.SetFont ("Arial", 24, style);
        canvas.DrawText ("MMMMMM", rect, 0);
        return Picture (canvas);
    };
    CHECK (paint (kBold, { 20, 10, 40, 16 }).InkBox () == ZRect{ 25, 10, 40, 16 });
    const ZRect all{ 0, 0, 60, 40 };
    const Picture plain = paint (0, all);
    CHECK_FALSE (paint (kItalic, all).IsLike (plain, 100));
    CHECK (paint (kUnderline, all).InkBox ().bottom > plain.InkBox ().bottom);
}

TEST_CASE ("text: widths are whole pixels, the same at every scale, and grow with text, size and weight")
{
    ZCairoCanvasImp canvas (1, 1, 1.0);
    ZCairoCanvasImp fine (1, 1, 1.5);
    std::int32_t before = 1000;
    for (std::int32_t index = 0; index < 5; ++index)
    {
        canvas.SetFontSize (index, 0);
        fine.SetFontSize (index, 0);
        const auto width = canvas.GetTextWidth ("Ratio 4.0:1");
        CHECK (width == fine.GetTextWidth ("Ratio 4.0:1"));
        CHECK (width < before);
        before = width;
        CHECK (canvas.GetTextWidth ("Ratio 4.0:1 dB") > width);
        canvas.SetFontSize (index, kBold);
        CHECK (canvas.GetTextWidth ("Ratio 4.0:1") > width);
    }
}

TEST_CASE ("text: bytes that are no text, long texts and unknown fonts do no harm")
{
    const auto paintThen = [] (ZCairoCanvasImp& canvas)
    {
        canvas.Clear ({ 0, 0, 60, 30 });
        canvas.SetFontSize (0, 0);
        canvas.DrawText ("then", { 0, 0, 60, 30 }, kAlignLeft);
        return Picture (canvas);
    };
    ZCairoCanvasImp fresh (60, 30, 1.0);
    const auto expected = paintThen (fresh);
    ZCairoCanvasImp canvas (60, 30, 1.0);
    for (const std::string& text :
         { std::string ("\xFF\xC0\x80 a"), std::string ("a\0b", 3), std::string ("\xE2\x82"),
           std::string ("one\ntwo\ttab\r\n"), std::string ("\xF0\x9F\x98\x80"), std::string (100000, 'm') })
    {
        canvas.SetFont ("No such font \xFF", 12, kBold | kItalic | kUnderline);
        CHECK (canvas.GetTextWidth (text) >= 0);
        canvas.DrawText (text, { 0, 0, 60, 30 }, kAlignLeft);
        CHECK (paintThen (canvas).IsLike (expected, 0));
    }
}

TEST_CASE ("text: a system without any font brings nothing down")
{
    const test::TempFolder folder;
    const auto config = folder.Write ("fonts.conf", "<?xml version=\"1.0\"?><fontconfig></fontconfig>");
    const test::EnvironmentVariable noFonts ("FONTCONFIG_FILE", config.c_str ());
    const auto run = test::RunProgram ("/proc/self/exe", { "--test-case=text: bytes that are no text*" });
    CHECK_MESSAGE (run.exitStatus == 0, run.out << run.err);
    CHECK (run.out.find ("1 passed") != std::string::npos);
}
