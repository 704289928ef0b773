#include "pango_text.h"

#include "cairo_canvas_imp.h"
#include "environment_variable.h"
#include "pixel_picture.h"
#include "program_run.h"
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
    const double tops[]{ top, (top + bottom) * 0.5, bottom };
    constexpr std::int32_t kVertical[]{ kAlignTop, kAlignMiddle, kAlignBottom };
    for (const double scale : { 1.0, 1.25, 1.5, 2.0 })
    {
        CAPTURE (scale);
        const ZRect left = InkAt (kAlignLeft | kAlignMiddle, scale);
        const double bearing = left.left - kRect.left * scale;
        CHECK (bearing >= 0.0);
        CHECK (bearing < 4.0 * scale);
        for (std::size_t i = 0; i < 3; ++i)
        {
            const auto baseline = std::lround ((tops[i] + extents.ascent) * scale);
            const ZRect inks[]{ InkAt (kAlignLeft | kVertical[i], scale), InkAt (kAlignCenter | kVertical[i], scale),
                                InkAt (kAlignRight | kVertical[i], scale) };
            for (const auto& ink : inks)
                CHECK (ink.bottom == baseline);
            CHECK (inks[0].left == left.left);
            CHECK (std::abs ((inks[1].left + inks[1].right) / 2.0 - (kRect.left + kRect.right) / 2.0 * scale) <= scale);
            CHECK (inks[2].right <= kRect.right * scale);
            CHECK (inks[2].right >= kRect.right * scale - 4.0 * scale);
        }
        CHECK (InkAt (0, scale) == InkAt (kAlignCenter | kAlignMiddle, scale));
        CHECK (InkAt (63, scale) == InkAt (kAlignLeft | kAlignTop, scale)); // the first bit wins
    }
}

TEST_CASE ("text: is cut at its rectangle and at the clip")
{
    ZCairoCanvasImp canvas (60, 30, 1.0);
    canvas.SetFont ("Arial", 24, kBold);
    canvas.DrawText ("MMMMMM", { 20, 10, 40, 16 }, 0);
    CHECK (Picture (canvas).InkBox () == ZRect{ 20, 10, 40, 16 });
    canvas.Clear ({ 0, 0, 60, 30 });
    canvas.SetClipRect ({ 25, 0, 60, 12 });
    canvas.DrawText ("MMMMMM", { 20, 10, 40, 16 }, 0);
    CHECK (Picture (canvas).InkBox () == ZRect{ 25, 10, 40, 12 });
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
        CHECK (canvas.GetFontSize () == kFontSizes[index]);
        const auto width = canvas.GetTextWidth ("Ratio 4.0:1");
        CHECK (width == fine.GetTextWidth ("Ratio 4.0:1"));
        CHECK (width < before);
        before = width;
        CHECK (canvas.GetTextWidth ("Ratio 4.0:1 dB") > width);
        canvas.SetFontSize (index, kBold);
        CHECK (canvas.GetTextWidth ("Ratio 4.0:1") > width);
    }
    CHECK (canvas.GetTextWidth ("") == 0);
}

TEST_CASE ("text: bold puts more ink, italic leans, underline draws a line below")
{
    const auto paint = [] (std::int32_t style)
    {
        ZCairoCanvasImp canvas (60, 40, 1.0);
        canvas.SetFont ("Arial", 20, style);
        canvas.DrawText ("III", { 0, 0, 60, 40 }, kAlignLeft);
        return Picture (canvas);
    };
    const auto ink = [] (const Picture& picture)
    {
        int sum = 0;
        for (std::int32_t y = 0; y < picture.Height (); ++y)
            for (std::int32_t x = 0; x < picture.Width (); ++x)
                sum += picture.AlphaAt (x, y);
        return sum;
    };
    const Picture plain = paint (0);
    CHECK (ink (paint (kBold)) > ink (plain) * 5 / 4);
    CHECK_FALSE (paint (kItalic).IsLike (plain, 100));
    CHECK (paint (kUnderline).InkBox ().bottom > plain.InkBox ().bottom);
    CHECK (paint (0).IsLike (plain, 0)); // the underline has gone with its call
}

TEST_CASE ("text: bytes that are no text, long texts and unknown fonts do no harm")
{
    ZCairoCanvasImp canvas (60, 30, 1.0);
    const std::string huge (100000, 'm');
    for (const std::string& text : { std::string ("\xFF\xC0\x80"
                                                  "a"),
                                     std::string ("a\0b", 3), std::string ("\xE2\x82"),
                                     std::string ("one\ntwo\ttab\r\n"), std::string ("\xF0\x9F\x98\x80"), huge })
    {
        canvas.SetFont ("No such font \xFF", 12, kBold | kItalic | kUnderline);
        CHECK (canvas.GetTextWidth (text) >= 0);
        canvas.DrawText (text, { 0, 0, 60, 30 }, kAlignLeft);
        canvas.Clear ({ 0, 0, 60, 30 });
        canvas.SetFontSize (0, 0);
        canvas.DrawText ("then", { 0, 0, 60, 30 }, kAlignLeft);
        ZCairoCanvasImp fresh (60, 30, 1.0);
        fresh.SetFontSize (0, 0);
        fresh.DrawText ("then", { 0, 0, 60, 30 }, kAlignLeft);
        CHECK (Picture (canvas).IsLike (Picture (fresh), 0));
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
