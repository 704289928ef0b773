#include "sheet.h"

#include "figures.h"
#include "images.h"
#include <cairo.h>
#include <map>
#include <stdexcept>
#include <string>

namespace tessaly::skin
{

namespace
{

constexpr std::int32_t kWidth = 1160;
constexpr std::int32_t kHeight = 1480;
constexpr ZRect kPanelPlaces[]{ { 10, 10, 570, 325 },    { 590, 10, 1150, 325 }, { 10, 335, 570, 650 },
                                { 590, 335, 1150, 650 }, { 10, 660, 570, 975 },  { 590, 660, 1150, 975 } };

/// A frame of an image at a place of the sheet.
class Sheet
{
public:
    explicit Sheet (std::int32_t pixels)
        : sheet (kWidth, kHeight, pixels)
        , density (pixels)
    {
        sheet.Fill (kPlate);
    }

    cairo_surface_t* Surface () const { return sheet.Surface (); }

    void Put (std::string_view name, ZPoint at, std::int32_t column = 0, std::int32_t row = 0)
    {
        const Image& image = Named (name);
        PutPart (name, at,
                 ZRect{ 0, 0, image.width, image.height } + ZPoint{ column * image.width, row * image.height });
    }

    void PutPart (std::string_view name, ZPoint at, const ZRect& part)
    {
        cairo_t* context = sheet.Context ();
        cairo_save (context);
        cairo_identity_matrix (context);
        cairo_set_source_surface (context, Pixels (name), (at.x - part.left) * density, (at.y - part.top) * density);
        cairo_rectangle (context, at.x * density, at.y * density, part.Width () * density, part.Height () * density);
        cairo_fill (context);
        cairo_restore (context);
    }

    void Text (std::string_view text, ZPoint at, std::int32_t column) ///< in the value font
    {
        for (const char character : text)
        {
            Put ("tsly_fon", at, column, static_cast<std::int32_t> (kValueCharacters.find (character)));
            at.x += 5;
        }
    }

private:
    static const Image& Named (std::string_view name)
    {
        for (const Image& image : Images ())
            if (image.name == name)
                return image;
        throw std::logic_error ("there is no image " + std::string (name));
    }

    cairo_surface_t* Pixels (std::string_view name)
    {
        auto found = drawn.find (name);
        if (found == drawn.end ())
            found = drawn.emplace (name, Draw (Named (name), density)).first;
        return found->second.Surface ();
    }

    Picture sheet;
    std::int32_t density;
    std::map<std::string_view, Picture> drawn;
};

// The panel in use

struct DialInUse
{
    std::string_view image;
    ZPoint place;
    std::int32_t frame;
    std::string_view value;
    ZPoint valuePlace; // right end of the text
    bool compressor;
};

constexpr DialInUse kDials[]{
    { "tsly_knb", { 83, 65 }, 71, "9.536", { 134, 66 }, true },
    { "tsly_knb", { 83, 83 }, 23, "27.6", { 134, 84 }, true },
    { "tsly_knb", { 83, 101 }, 70, "8.50", { 134, 102 }, true },
    { "tsly_knb", { 83, 179 }, 18, "1.00", { 134, 180 }, true },
    { "tsly_knb", { 83, 197 }, 50, "630.0", { 134, 198 }, true },
    { "tsly_knb_cet", { 83, 215 }, 20, "-11.8", { 134, 216 }, true },
    { "tsly_knb", { 300, 171 }, 38, "95.0", { 346, 172 }, false },
    { "tsly_knb_cet", { 300, 189 }, 68, "6.6", { 346, 190 }, false },
    { "tsly_knb", { 387, 153 }, 30, "1.41", { 433, 154 }, false },
    { "tsly_knb", { 387, 171 }, 56, "900.0", { 433, 172 }, false },
    { "tsly_knb_cet", { 387, 189 }, 32, "-6.5", { 433, 190 }, false },
    { "tsly_knb", { 474, 171 }, 83, "10.0k", { 520, 172 }, false },
    { "tsly_knb_cet", { 474, 189 }, 70, "7.4", { 520, 190 }, false },
    { "tsly_knb_cet", { 474, 223 }, 50, "0.0", { 520, 224 }, false },
};

/// How the controls of the two sections look.
struct State
{
    std::int32_t compressor = 0; // column: normal, lit, off
    std::int32_t equalizer = 0;
    std::int32_t morph = 0; // column: normal, lit, modified
};

void PutDials (Sheet& sheet, ZPoint at, const State& state)
{
    for (const auto& dial : kDials)
    {
        const std::int32_t column = dial.compressor ? state.compressor : state.equalizer;
        const auto width = static_cast<std::int32_t> (5 * dial.value.size ());
        sheet.Put (dial.image, at + dial.place, column, dial.frame);
        sheet.Text (dial.value, at + dial.valuePlace - ZPoint{ width, 0 }, column);
    }
    sheet.Put ("tsly_knb_drv", at + ZPoint{ 174, 163 }, 0, 62);
    sheet.Text ("6.20", at + ZPoint{ 195, 221 }, 0);
    sheet.PutPart ("tsly_knb_mrp", at + ZPoint{ 240, 214 },
                   ZRect{ 42, 0, 122, 80 } + ZPoint{ 164 * state.morph, 92 * 53 });
    sheet.PutPart ("tsly_knb_mrp", at + ZPoint{ 198, 304 },
                   ZRect{ 0, 90, 164, 92 } + ZPoint{ 164 * state.morph, 92 * 53 });
}

void PutPanel (Sheet& sheet, ZPoint at, const State& state)
{
    sheet.Put ("MONO_tsly_bak", at);
    if (state.compressor == 2)
        sheet.Put ("tsly_bak_cmp", at + ZPoint{ 27, 57 });
    if (state.equalizer == 2)
    {
        sheet.PutPart ("tsly_bak_eq", at + ZPoint{ 283, 138 }, { 0, 0, 250, 79 });
        sheet.PutPart ("tsly_bak_eq", at + ZPoint{ 283, 218 }, { 0, 80, 250, 101 });
    }
    sheet.Put ("tsly_tsw", at + ZPoint{ 29, 136 }, 0, 3 * state.compressor);
    sheet.Put ("tsly_lmt_cmp", at + ZPoint{ 244, 59 }, state.compressor / 2, 9);
    sheet.Put ("tsly_lmt_eq", at + ZPoint{ 512, 59 }, state.equalizer / 2, 23);
    sheet.Put ("tsly_bak_met_eq", at + ZPoint{ 501, 58 });
    PutDials (sheet, at, state);
    if (state.equalizer != 2)
    {
        sheet.Put ("tsly_led_low", at + ZPoint{ 283, 138 }, 0, state.equalizer);
        sheet.Put ("tsly_led_mid", at + ZPoint{ 370, 138 }, 0, state.equalizer);
        sheet.Put ("tsly_led_hig", at + ZPoint{ 457, 138 }, 0, state.equalizer);
    }
    sheet.Put ("tsly_nsw_cmp", at + ZPoint{ 5, 265 }, 0, state.compressor / 2);
    sheet.Put ("tsly_nsw_eq", at + ZPoint{ 484, 265 }, 0, state.equalizer / 2);
    sheet.Put ("tsly_bak_glp_cmp", at + ZPoint{ 156, 57 });
    sheet.Put ("tsly_bak_glp_eq", at + ZPoint{ 285, 57 });
    sheet.Put ("tsly_mkr_low", at + ZPoint{ 339, 75 }, 0, state.equalizer);
    sheet.Put ("tsly_mkr_mid", at + ZPoint{ 401, 94 }, 0, state.equalizer);
    sheet.Put ("tsly_mkr_hig", at + ZPoint{ 466, 75 }, 0, state.equalizer);
    sheet.Put ("tsly_pdm", at + ZPoint{ 314, 6 });
}

void PutPanels (Sheet& sheet)
{
    const auto at = [] (std::size_t index) { return kPanelPlaces[index].TopLeft (); };
    PutPanel (sheet, at (0), {});
    PutPanel (sheet, at (1), { 1, 1, 1 });
    sheet.Put ("tsly_bak_on", at (1));
    PutPanel (sheet, at (2), { 2, 0, 2 });
    sheet.Put ("tsly_knb_gid_cet", at (2) + ZPoint{ 253, 142 }, 0, 68);
    sheet.Text ("6.6", at (2) + ZPoint{ 331, 190 }, 1);
    PutPanel (sheet, at (3), { 0, 2, 0 });
    sheet.Put ("tsly_knb_gid", at (3) + ZPoint{ 36, 18 }, 0, 71);
    sheet.Text ("9.536", at (3) + ZPoint{ 109, 66 }, 1);
    PutPanel (sheet, at (4), {});
    sheet.Put ("tsly_bak_dlg", at (4) + ZPoint{ 311, 37 });
    sheet.Put ("tsly_nsw_ok", at (4) + ZPoint{ 361, 279 }, 0, 1);
    sheet.Put ("tsly_nsw_ccl", at (4) + ZPoint{ 431, 280 });
    sheet.Put ("tsly_nsw_top", at (4) + ZPoint{ 520, 45 });
    sheet.Put ("tsly_nsw_up", at (4) + ZPoint{ 520, 60 });
    sheet.Put ("tsly_nsw_dwn", at (4) + ZPoint{ 520, 243 });
    sheet.Put ("tsly_nsw_btm", at (4) + ZPoint{ 520, 258 });
    sheet.Put ("tsly_nsw_fld", at (4) + ZPoint{ 323, 50 }, 0, 1);
    sheet.Put ("tsly_nsw_fld", at (4) + ZPoint{ 323, 69 }, 0, 0);
    sheet.Put ("tsly_bak_abt", at (5));
}

// Frames

void PutDialFrames (Sheet& sheet)
{
    std::int32_t x = 10;
    for (const std::int32_t frame : { 0, 10, 25, 40, 50, 60, 75, 90, 100 })
    {
        for (std::int32_t column = 0; column < 3; ++column)
        {
            sheet.Put ("tsly_knb", { x, 985 + 16 * column }, column, frame);
            sheet.Put ("tsly_knb_cet", { x, 1040 + 16 * column }, column, frame);
        }
        x += 18;
    }
    x = 180;
    for (const std::int32_t frame : { 0, 30, 50, 100 })
    {
        for (std::int32_t column = 0; column < 3; ++column)
            sheet.Put ("tsly_knb_drv", { x, 985 + 60 * column }, column, frame);
        x += 62;
    }
    x = 430;
    for (const std::int32_t frame : { 0, 25, 50, 75, 100 })
    {
        for (std::int32_t column = 0; column < 3; ++column)
            sheet.PutPart ("tsly_knb_mrp", { x, 985 + 95 * column },
                           ZRect{ 20, 0, 144, 92 } + ZPoint{ 164 * column, 92 * frame });
        x += 130;
    }
    x = 10;
    for (const std::int32_t frame : { 0, 30, 50, 80, 100 })
    {
        sheet.Put ("tsly_knb_gid", { x, 1270 }, 0, frame);
        sheet.Put ("tsly_knb_gid_cet", { x + 560, 1270 }, 0, frame);
        x += 110;
    }
}

void PutSmallThings (Sheet& sheet)
{
    for (std::int32_t column = 0; column < 3; ++column)
        sheet.Text (kValueCharacters, { 10, 1100 + 13 * column }, column);
    for (std::int32_t row = 0; row < 9; ++row)
        sheet.Put ("tsly_tsw", { 10 + 125 * (row / 3), 1170 + 16 * (row % 3) }, 0, row);
    for (std::int32_t row = 0; row < 2; ++row)
    {
        sheet.Put ("tsly_led_low", { 10, 1225 + 16 * row }, 0, row);
        sheet.Put ("tsly_led_mid", { 42, 1225 + 16 * row }, 0, row);
        sheet.Put ("tsly_led_hig", { 72, 1225 + 16 * row }, 0, row);
        sheet.Put ("tsly_nsw_cmp", { 105 + 75 * row, 1225 }, 0, row);
        sheet.Put ("tsly_nsw_eq", { 260 + 75 * row, 1225 }, 0, row);
        sheet.Put ("tsly_nsw_ccl", { 80, 1390 + 20 * row }, 0, row);
        sheet.Put ("tsly_nsw_top", { 150, 1390 + 16 * row }, 0, row);
        sheet.Put ("tsly_nsw_up", { 168, 1390 + 16 * row }, 0, row);
        sheet.Put ("tsly_nsw_dwn", { 186, 1390 + 16 * row }, 0, row);
        sheet.Put ("tsly_nsw_btm", { 204, 1390 + 16 * row }, 0, row);
    }
    for (std::int32_t row = 0; row < 3; ++row)
    {
        sheet.Put ("tsly_nsw_ok", { 10, 1390 + 22 * row }, 0, row);
        sheet.Put ("tsly_mkr_low", { 230, 1390 + 14 * row }, 0, row);
        sheet.Put ("tsly_mkr_mid", { 245, 1390 + 14 * row }, 0, row);
        sheet.Put ("tsly_mkr_hig", { 260, 1390 + 14 * row }, 0, row);
    }
    std::int32_t x = 290;
    for (const std::int32_t lamps : { 0, 9, 36 })
        for (std::int32_t column = 0; column < 2; ++column, x += 9)
            sheet.Put ("tsly_lmt_cmp", { x, 1390 }, column, lamps);
    for (const std::int32_t lamps : { 0, 23, 33, 34 })
        for (std::int32_t column = 0; column < 2; ++column, x += 9)
            sheet.Put ("tsly_lmt_eq", { x, 1390 }, column, lamps);
}

} // namespace

CairoSurface DrawSheet (std::int32_t density, std::int32_t zoom)
{
    Sheet sheet (density);
    PutPanels (sheet);
    PutDialFrames (sheet);
    PutSmallThings (sheet);

    const std::int32_t pixels = density * zoom;
    CairoSurface zoomed (cairo_image_surface_create (CAIRO_FORMAT_ARGB32, kWidth * pixels, kHeight * pixels));
    const CairoContext context (cairo_create (zoomed.get ()));
    cairo_scale (context.get (), zoom, zoom);
    cairo_set_source_surface (context.get (), sheet.Surface (), 0.0, 0.0);
    cairo_pattern_set_filter (cairo_get_source (context.get ()), CAIRO_FILTER_NEAREST);
    cairo_paint (context.get ());
    return zoomed;
}

} // namespace tessaly::skin
