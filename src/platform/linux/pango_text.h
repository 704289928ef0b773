#pragma once

#include "cairo_handles.h"
#include "geometry.h"
#include "pixel_grid.h"
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using PangoContext = struct _PangoContext;
using PangoLayout = struct _PangoLayout;
using PangoFontMap = struct _PangoFontMap;
using PangoFontDescription = struct _PangoFontDescription;

namespace tessaly
{

struct PangoRelease
{
    void operator() (PangoFontMap* map) const;
    void operator() (PangoContext* context) const;
    void operator() (PangoLayout* layout) const;
    void operator() (PangoFontDescription* font) const;
};

/// A font as it is asked for. The system maps the name: with no font of this name it gives another.
struct FontRequest
{
    std::string name = "Arial";
    std::int32_t pixels = 12;
    std::int32_t style = 0; // bits of FontStyle

    friend bool operator== (const FontRequest&, const FontRequest&) = default;
};

/// Text through Pango, its fonts through fontconfig. Sizes are in coordinates, independent of the screen's resolution
/// and of the user's font settings; widths don't depend on the scale. Fonts are looked up once, the layout is used
/// again. A font map of its own, because the thread's default one may be the host's. One thread.
///
/// Bytes that are no UTF-8 show as U+FFFD. Of a text kLongestText bytes are seen. A size below 1 draws nothing and has
/// no width, one above kMostPixels is drawn at that. On a system without any font nothing is drawn and no text has a
/// width.
class PangoText
{
public:
    static constexpr std::size_t kLongestText = 4096;
    static constexpr std::int32_t kMostPixels = 500;

    explicit PangoText (double scale); ///< pixels a coordinate: PixelGrid::Scale
    ~PangoText ();
    PangoText (const PangoText&) = delete;
    PangoText& operator= (const PangoText&) = delete;

    std::int32_t Width (std::string_view text, const FontRequest& font); ///< coordinates, rounded up

    /// Draws with the target's source, within its clip. With S the font's size, A and D its ascent and descent, both
    /// plus 0.5, the letters' box (ascent above, descent below the baseline) has its top at
    ///     top:     rect.top - A - D + S
    ///     bottom:  rect.bottom - S
    /// or in the middle of the two, and its left end at
    ///     left:    rect.left
    ///     right:   rect.right - width
    /// or in the middle. Baseline and left end then go to the nearest pixel, which keeps letters sharp and alike.
    /// @param grid  of the target, of the same scale
    void Draw (cairo_t* target, const PixelGrid& grid, std::string_view text, const FontRequest& font,
               const ZRect& rect, std::int32_t alignment);

private:
    struct Font
    {
        FontRequest request;
        std::unique_ptr<PangoFontDescription, PangoRelease> description;
        bool exists = false; // not so on a system without fonts
        double ascent = 0.0; // coordinates
        double descent = 0.0;
    };

    const Font& Find (const FontRequest& request);
    void AddMetrics (Font& font) const;
    const Font* LayOut (std::string_view text, const FontRequest& request);
    void SetText (std::string_view text, const Font& font);
    std::int32_t LayoutWidth () const;

    std::unique_ptr<PangoFontMap, PangoRelease> map;
    std::unique_ptr<PangoContext, PangoRelease> context;
    std::unique_ptr<PangoLayout, PangoRelease> layout;
    std::vector<Font> fonts;
};

} // namespace tessaly
