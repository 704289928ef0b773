#include "pango_text.h"

#include "canvas_imp.h"
#include "utf8.h"
#include <algorithm>
#include <cmath>
#include <dlfcn.h>
#include <pango/pangocairo.h>

namespace tessaly
{

namespace
{

constexpr std::size_t kMostFonts = 32; // a panel uses a handful

double FromPango (int units)
{
    return static_cast<double> (units) / PANGO_SCALE;
}

/// Pango tells GLib its types, with names that lie in Pango's own memory, and GLib never forgets them: once used, Pango
/// has to stay loaded when a module that brought it in goes, or the next user finds names that are there no more. And
/// each load of these libraries costs some 12 kB that no unload gives back. So they stay from the first load on; what
/// Pango itself needs stays with it.
bool KeepPangoLoaded ()
{
    Dl_info library{};
    return dladdr (reinterpret_cast<void*> (&pango_cairo_font_map_new), &library) != 0 &&
           dlopen (library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE) != nullptr;
}

[[maybe_unused]] const bool pangoStays = KeepPangoLoaded (); // when this module is loaded

/// The text as Pango takes it, cut at a character.
std::string WellFormed (std::string_view text)
{
    std::size_t length = std::min (text.size (), PangoText::kLongestText);
    while (0 < length && length < text.size () && ContinuesCharacter (text[length]))
        --length;
    if (g_utf8_validate (text.data (), static_cast<gssize> (length), nullptr))
        return std::string (text.substr (0, length));
    const std::unique_ptr<char, decltype (&g_free)> valid (
        g_utf8_make_valid (text.data (), static_cast<gssize> (length)), g_free);
    return valid.get ();
}

std::unique_ptr<PangoFontDescription, PangoRelease> Describe (const FontRequest& request)
{
    std::unique_ptr<PangoFontDescription, PangoRelease> font (pango_font_description_new ());
    pango_font_description_set_family (font.get (), WellFormed (request.name).c_str ());
    pango_font_description_set_absolute_size (font.get (),
                                              std::clamp (request.pixels, 1, PangoText::kMostPixels) * PANGO_SCALE);
    pango_font_description_set_weight (font.get (), request.style & kBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style (font.get (), request.style & kItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return font;
}

/// The same on every machine: grey smoothing, since the surface is transparent, letters fitted to the pixels by height
/// alone, and advances as designed, so that a text is as wide at every scale.
void FixAppearance (PangoContext* context)
{
    cairo_font_options_t* options = cairo_font_options_create ();
    cairo_font_options_set_antialias (options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style (options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics (options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options (context, options);
    cairo_font_options_destroy (options);
    pango_context_set_round_glyph_positions (context, FALSE);
}

PangoAlignment LineAlignment (std::int32_t alignment)
{
    return alignment & kAlignLeft     ? PANGO_ALIGN_LEFT
           : alignment & kAlignCenter ? PANGO_ALIGN_CENTER
           : alignment & kAlignRight  ? PANGO_ALIGN_RIGHT
                                      : PANGO_ALIGN_CENTER;
}

/// One of the two ends or their middle, by the first bit of the three that is set.
double Place (double first, double last, std::int32_t alignment, std::int32_t firstBit, std::int32_t middleBit,
              std::int32_t lastBit)
{
    if (alignment & firstBit)
        return first;
    if ((alignment & middleBit) == 0 && alignment & lastBit)
        return last;
    return (first + last) * 0.5;
}

} // namespace

void PangoRelease::operator() (PangoFontMap* map) const
{
    g_object_unref (map);
}

void PangoRelease::operator() (PangoContext* context) const
{
    g_object_unref (context);
}

void PangoRelease::operator() (PangoLayout* layout) const
{
    g_object_unref (layout);
}

void PangoRelease::operator() (PangoFontDescription* font) const
{
    pango_font_description_free (font);
}

PangoText::PangoText (double scale)
    : map (pango_cairo_font_map_new ())
    , context (pango_font_map_create_context (map.get ()))
    , layout (pango_layout_new (context.get ()))
{
    FixAppearance (context.get ());
    PangoMatrix matrix = PANGO_MATRIX_INIT;
    pango_matrix_scale (&matrix, scale, scale);
    pango_context_set_matrix (context.get (), &matrix);
    pango_layout_context_changed (layout.get ());
}

PangoText::~PangoText () = default;

const PangoText::Font& PangoText::Find (const FontRequest& request)
{
    const auto known =
        std::find_if (fonts.begin (), fonts.end (), [&] (const Font& font) { return font.request == request; });
    if (known != fonts.end ())
        return *known;
    if (fonts.size () == kMostFonts)
        fonts.erase (fonts.begin ());
    Font font{ request, Describe (request) };
    AddMetrics (font);
    return fonts.emplace_back (std::move (font));
}

/// In a context of its own: under a scaled one versions of Pango differ on what the numbers count.
void PangoText::AddMetrics (Font& font) const
{
    const std::unique_ptr<PangoContext, PangoRelease> unscaled (pango_font_map_create_context (map.get ()));
    FixAppearance (unscaled.get ());
    PangoFont* loaded = pango_font_map_load_font (map.get (), unscaled.get (), font.description.get ());
    if (loaded == nullptr)
        return;
    PangoFontMetrics* metrics = pango_font_get_metrics (loaded, nullptr);
    font.exists = true;
    font.ascent = FromPango (pango_font_metrics_get_ascent (metrics));
    font.descent = FromPango (pango_font_metrics_get_descent (metrics));
    pango_font_metrics_unref (metrics);
    g_object_unref (loaded);
}

/// @return the font with which the layout has the text now; null when there is nothing to lay out
const PangoText::Font* PangoText::LayOut (std::string_view text, const FontRequest& request)
{
    if (text.empty () || request.pixels < 1)
        return nullptr;
    const Font& font = Find (request);
    if (!font.exists)
        return nullptr;
    SetText (text, font);
    return &font;
}

void PangoText::SetText (std::string_view text, const Font& font)
{
    pango_layout_set_font_description (layout.get (), font.description.get ());
    const std::string valid = WellFormed (text);
    pango_layout_set_text (layout.get (), valid.data (), static_cast<int> (valid.size ()));
    PangoAttrList* underline = nullptr;
    if (font.request.style & kUnderline)
    {
        underline = pango_attr_list_new ();
        pango_attr_list_insert (underline, pango_attr_underline_new (PANGO_UNDERLINE_SINGLE));
    }
    pango_layout_set_attributes (layout.get (), underline);
    if (underline)
        pango_attr_list_unref (underline);
}

std::int32_t PangoText::LayoutWidth () const
{
    int width = 0;
    pango_layout_get_size (layout.get (), &width, nullptr);
    return static_cast<std::int32_t> (std::ceil (FromPango (width)));
}

std::int32_t PangoText::Width (std::string_view text, const FontRequest& request)
{
    return LayOut (text, request) ? LayoutWidth () : 0;
}

void PangoText::Draw (cairo_t* target, const PixelGrid& grid, std::string_view text, const FontRequest& request,
                      const ZRect& rect, std::int32_t alignment)
{
    const Font* font = LayOut (text, request);
    if (font == nullptr)
        return;
    pango_layout_set_alignment (layout.get (), LineAlignment (alignment));

    const double size = std::min (request.pixels, kMostPixels);
    const double ascent = font->ascent + 0.5;
    const double descent = font->descent + 0.5;
    const double right = static_cast<double> (rect.right) - LayoutWidth ();
    const double x = Place (rect.left, right, alignment, kAlignLeft, kAlignCenter, kAlignRight);
    const double y = Place (rect.top - ascent - descent + size, rect.bottom - size, alignment, kAlignTop, kAlignMiddle,
                            kAlignBottom);

    const double layoutBaseline = FromPango (pango_layout_get_baseline (layout.get ()));
    cairo_save (target);
    cairo_translate (target, grid.X ().Edge (x), grid.Y ().Edge (y + font->ascent));
    cairo_scale (target, grid.Scale (), grid.Scale ());
    cairo_move_to (target, 0.0, -layoutBaseline);
    pango_cairo_show_layout (target, layout.get ());
    cairo_restore (target);
    cairo_new_path (target);
}

} // namespace tessaly
