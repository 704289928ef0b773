#include "type.h"

#include <cairo-ft.h>
#include <cmath>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <hb-ft.h>
#include FT_MODULE_H
#include FT_DRIVER_H
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace tessaly::skin
{

namespace
{

struct FaceName
{
    const char* family;
    int weight;
    const char* package;
};

FaceName NameOf (Face face)
{
    switch (face)
    {
    case Face::kManropeMedium:
        return { "Manrope", FC_WEIGHT_MEDIUM, "fonts-manrope" };
    case Face::kManropeSemiBold:
        return { "Manrope", FC_WEIGHT_DEMIBOLD, "fonts-manrope" };
    case Face::kManropeBold:
        return { "Manrope", FC_WEIGHT_BOLD, "fonts-manrope" };
    case Face::kOpenSansSemiBold:
        break;
    }
    return { "Open Sans", FC_WEIGHT_DEMIBOLD, "fonts-open-sans" };
}

struct Release
{
    void operator() (FcPattern* pattern) const { FcPatternDestroy (pattern); }
    void operator() (cairo_font_face_t* face) const { cairo_font_face_destroy (face); }
    void operator() (cairo_scaled_font_t* font) const { cairo_scaled_font_destroy (font); }
    void operator() (cairo_font_options_t* options) const { cairo_font_options_destroy (options); }
    void operator() (hb_buffer_t* buffer) const { hb_buffer_destroy (buffer); }
    void operator() (hb_font_t* font) const { hb_font_destroy (font); }
};
template <class T>
using Owned = std::unique_ptr<T, Release>;

/// The file of exactly this face: another one in its stead would change every picture.
std::string FileOf (const FaceName& wanted)
{
    const Owned<FcPattern> pattern (FcPatternCreate ());
    FcPatternAddString (pattern.get (), FC_FAMILY, reinterpret_cast<const FcChar8*> (wanted.family));
    FcPatternAddInteger (pattern.get (), FC_WEIGHT, wanted.weight);
    FcPatternAddInteger (pattern.get (), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddInteger (pattern.get (), FC_WIDTH, FC_WIDTH_NORMAL);
    FcConfigSubstitute (nullptr, pattern.get (), FcMatchPattern);
    FcDefaultSubstitute (pattern.get ());
    FcResult result = FcResultNoMatch;
    const Owned<FcPattern> match (FcFontMatch (nullptr, pattern.get (), &result));
    FcChar8* family = nullptr;
    FcChar8* file = nullptr;
    int weight = 0;
    if (!match || FcPatternGetString (match.get (), FC_FAMILY, 0, &family) != FcResultMatch ||
        FcPatternGetString (match.get (), FC_FILE, 0, &file) != FcResultMatch ||
        FcPatternGetInteger (match.get (), FC_WEIGHT, 0, &weight) != FcResultMatch || weight != wanted.weight ||
        std::string_view (reinterpret_cast<const char*> (family)) != wanted.family)
        throw std::runtime_error (std::string ("the font ") + wanted.family + " is missing: install the package " +
                                  wanted.package);
    return reinterpret_cast<const char*> (file);
}

/// The library stays until the program ends, for Cairo keeps fonts for as long.
FT_Library Library ()
{
    static const FT_Library library = []
    {
        FT_Library made = nullptr;
        if (FT_Init_FreeType (&made) != 0)
            throw std::runtime_error ("FreeType can't be started");
        // The environment can choose another one, and letters would be hinted in another way.
        FT_UInt interpreter = TT_INTERPRETER_VERSION_40;
        FT_Property_Set (made, "truetype", "interpreter-version", &interpreter);
        return made;
    }();
    return library;
}

Owned<cairo_font_options_t> OptionsFor (double density)
{
    Owned<cairo_font_options_t> options (cairo_font_options_create ());
    cairo_font_options_set_antialias (options.get (), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_metrics (options.get (), CAIRO_HINT_METRICS_ON);
    cairo_font_options_set_hint_style (options.get (), density > 1.0 ? CAIRO_HINT_STYLE_SLIGHT : CAIRO_HINT_STYLE_FULL);
    return options;
}

/// A face at a size in pixels, whatever the system's settings for fonts are.
Owned<cairo_scaled_font_t> Load (Face face, double pixels, double density)
{
    FT_Face loaded = nullptr;
    if (FT_New_Face (Library (), FileOf (NameOf (face)).c_str (), 0, &loaded) != 0)
        throw std::runtime_error (std::string (NameOf (face).family) + " can't be read");
    const Owned<cairo_font_face_t> cairoFace (cairo_ft_font_face_create_for_ft_face (loaded, 0));
    cairo_matrix_t size;
    cairo_matrix_t unchanged;
    cairo_matrix_init_scale (&size, pixels, pixels);
    cairo_matrix_init_identity (&unchanged);
    return Owned<cairo_scaled_font_t> (
        cairo_scaled_font_create (cairoFace.get (), &size, &unchanged, OptionsFor (density).get ()));
}

cairo_scaled_font_t* Font (Face face, double pixels, double density)
{
    static std::map<std::tuple<Face, double, double>, Owned<cairo_scaled_font_t>> fonts;
    auto& font = fonts[{ face, pixels, density }];
    if (!font)
        font = Load (face, pixels, density);
    return font.get ();
}

/// Glyphs of a text in pixels, from (0, 0).
struct Line
{
    cairo_scaled_font_t* font = nullptr; // not owned: Font
    std::vector<cairo_glyph_t> glyphs;
    std::vector<double> advances; // with the tracking
};

/// The glyphs, and by how many pixels pairs of letters move together; at these sizes that is seldom more than one.
void Shape (Line& line, std::string_view text)
{
    const Owned<hb_buffer_t> buffer (hb_buffer_create ());
    hb_buffer_add_utf8 (buffer.get (), text.data (), static_cast<int> (text.size ()), 0, -1);
    hb_buffer_guess_segment_properties (buffer.get ());
    const Owned<hb_font_t> font (hb_ft_font_create_referenced (cairo_ft_scaled_font_lock_face (line.font)));
    hb_shape (font.get (), buffer.get (), nullptr, 0);
    unsigned int count = 0;
    const auto* infos = hb_buffer_get_glyph_infos (buffer.get (), &count);
    const auto* positions = hb_buffer_get_glyph_positions (buffer.get (), nullptr);
    for (unsigned int i = 0; i < count; ++i)
    {
        const auto unkerned = hb_font_get_glyph_h_advance (font.get (), infos[i].codepoint);
        line.glyphs.push_back ({ infos[i].codepoint, 0.0, 0.0 });
        line.advances.push_back (std::round ((positions[i].x_advance - unkerned) / 64.0));
    }
    cairo_ft_scaled_font_unlock_face (line.font);
}

Line LayOut (const Picture& picture, std::string_view text, const TextStyle& style)
{
    Line line{ Font (style.face, style.size * picture.Density (), picture.Density ()), {}, {} };
    Shape (line, text);
    double x = 0.0;
    for (std::size_t i = 0; i < line.glyphs.size (); ++i)
    {
        cairo_text_extents_t extents;
        cairo_scaled_font_glyph_extents (line.font, &line.glyphs[i], 1, &extents);
        line.glyphs[i].x = x;
        line.advances[i] += std::round (extents.x_advance) + style.tracking * picture.Density ();
        x += line.advances[i];
    }
    return line;
}

void Show (Picture& picture, Line& line, double x, double y, Ink ink)
{
    double left = 0.0;
    double top = 0.0;
    cairo_user_to_device (picture.Context (), &left, &top); // of the frame, in pixels
    for (auto& glyph : line.glyphs)
    {
        glyph.x += left + std::round (x);
        glyph.y += top + y;
    }
    cairo_save (picture.Context ());
    cairo_identity_matrix (picture.Context ());
    picture.Use (ink);
    cairo_set_scaled_font (picture.Context (), line.font);
    cairo_show_glyphs (picture.Context (), line.glyphs.data (), static_cast<int> (line.glyphs.size ()));
    cairo_restore (picture.Context ());
}

} // namespace

double Write (Picture& picture, std::string_view text, const TextStyle& style, double x, double y, Anchor anchor,
              Ink ink)
{
    Line line = LayOut (picture, text, style);
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents (line.font, line.glyphs.data (), static_cast<int> (line.glyphs.size ()), &extents);
    const double share = anchor == Anchor::kLeft ? 0.0 : anchor == Anchor::kCenter ? 0.5 : 1.0;
    const double left = std::round (x * picture.Density () - extents.x_bearing - share * extents.width);
    Show (picture, line, left, y * picture.Density (), ink);
    return (left + extents.x_bearing + extents.width) / picture.Density ();
}

void WriteFigures (Picture& picture, std::string_view text, const TextStyle& style, double pointX, double y, Ink ink)
{
    Line line = LayOut (picture, text, style);
    const auto point = text.find ('.');
    const double toPoint = line.glyphs[point].x + line.advances[point] * 0.5;
    Show (picture, line, pointX * picture.Density () - toPoint, y * picture.Density (), ink);
}

} // namespace tessaly::skin
