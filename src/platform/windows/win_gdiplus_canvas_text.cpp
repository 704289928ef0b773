#include "clip_guard.h"
#include "wide_text.h"
#include "win_gdiplus_canvas_imp.h"
#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

namespace tessaly
{

namespace
{

constexpr std::size_t kLongestText = 4096; // bytes of a text that are seen
constexpr double kLargestFont = 500.0;     // coordinates

Gdiplus::RectF Measure (Gdiplus::GpGraphics* graphics, const std::wstring& text, const Gdiplus::GpFont* font,
                        const Gdiplus::GpStringFormat* format)
{
    const Gdiplus::RectF anySize;
    Gdiplus::RectF size;
    gdip::GdipMeasureString (graphics, text.data (), static_cast<INT> (text.size ()), font, &anySize, format, &size,
                             nullptr, nullptr);
    return size;
}

} // namespace

/// What a text is written with, made for each text and not kept. Null members when the system has no font at all.
struct ZWinGDIPlusCanvasImp::Font
{
    GdiplusObject<Gdiplus::GpFontFamily> family;
    GdiplusObject<Gdiplus::GpFont> font;
    GdiplusObject<Gdiplus::GpStringFormat> format;
    double above = 0.0; // the baseline, pixels, rounded up by half of one
    double below = 0.0; // likewise
};

ZWinGDIPlusCanvasImp::Font ZWinGDIPlusCanvasImp::MakeFont (double pixels) const
{
    Font made;
    Gdiplus::GpFontFamily* family = nullptr;
    if (gdip::GdipCreateFontFamilyFromName (fontName.data (), nullptr, &family) != Gdiplus::Ok)
        gdip::GdipGetGenericFontFamilySansSerif (&family); // no font of this name
    made.family.reset (family);
    Gdiplus::GpFont* font = nullptr;
    gdip::GdipCreateFont (family, static_cast<Gdiplus::REAL> (pixels), fontStyle, Gdiplus::UnitPixel, &font);
    made.font.reset (font);
    Gdiplus::GpStringFormat* format = nullptr;
    gdip::GdipCreateStringFormat (0, LANG_NEUTRAL, &format);
    made.format.reset (format);
    UINT16 em = 0;
    UINT16 ascent = 0;
    UINT16 descent = 0;
    gdip::GdipGetEmHeight (family, fontStyle, &em);
    gdip::GdipGetCellAscent (family, fontStyle, &ascent);
    gdip::GdipGetCellDescent (family, fontStyle, &descent);
    if (em > 0)
    {
        made.above = ascent * pixels / em + 0.5;
        made.below = descent * pixels / em + 0.5;
    }
    return made;
}

void ZWinGDIPlusCanvasImp::SetFont (std::string_view name, std::int32_t pixels, std::int32_t style)
{
    const auto wide = WideText (name);
    fontName.fill (0);
    std::copy_n (wide.begin (), std::min (wide.size (), fontName.size () - 1), fontName.begin ());
    fontSize = static_cast<float> (std::clamp<double> (pixels, 0.0, kLargestFont));
    fontStyle = style & (kBold | kItalic | kUnderline); // GDI+ has the same bits
}

void ZWinGDIPlusCanvasImp::SetFontSize (std::int32_t index, std::int32_t style)
{
    constexpr auto kLast = static_cast<std::int32_t> (std::size (kFontSizes)) - 1;
    SetFont ("Arial", kFontSizes[std::clamp (index, 0, kLast)], style);
}

std::int32_t ZWinGDIPlusCanvasImp::GetTextWidth (std::string_view text)
{
    const auto font = MakeFont (static_cast<double> (fontSize));
    const auto size =
        Measure (GetGraphics (), WideText (text.substr (0, kLongestText)), font.font.get (), font.format.get ());
    return static_cast<std::int32_t> (std::ceil (size.Width));
}

void ZWinGDIPlusCanvasImp::DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment)
{
    const ZRect pixels = grid.Pixels (rect);
    if (pixels.IsEmpty ())
        return;
    const ClipGuard guard (*this);
    guard.Intersect (pixels);
    Note (pixels);
    const double size = static_cast<double> (fontSize) * grid.Scale ();
    const auto font = MakeFont (size);
    const auto wide = WideText (text.substr (0, kLongestText));
    const auto measured = Measure (GetGraphics (), wide, font.font.get (), font.format.get ());
    const double width = std::ceil (static_cast<double> (measured.Width));

    const double left = pixels.left;
    const double right = pixels.right - width;
    const double top = pixels.top - font.above - font.below + size;
    const double bottom = pixels.bottom - size;
    double x = (left + right) * 0.5;
    double y = (top + bottom) * 0.5;
    const auto align = [&font] (Gdiplus::StringAlignment to)
    { gdip::GdipSetStringFormatAlign (font.format.get (), to); };
    if ((alignment & kAlignLeft) != 0)
        x = left, align (Gdiplus::StringAlignmentNear);
    else if ((alignment & kAlignCenter) != 0)
        align (Gdiplus::StringAlignmentCenter);
    else if ((alignment & kAlignRight) != 0)
        x = right, align (Gdiplus::StringAlignmentFar);
    if ((alignment & kAlignTop) != 0)
        y = top;
    else if ((alignment & kAlignMiddle) == 0 && (alignment & kAlignBottom) != 0)
        y = bottom;

    const Gdiplus::RectF layout (static_cast<Gdiplus::REAL> (x), static_cast<Gdiplus::REAL> (y),
                                 static_cast<Gdiplus::REAL> (width), measured.Height);
    gdip::GdipDrawString (GetGraphics (), wide.data (), static_cast<INT> (wide.size ()), font.font.get (), &layout,
                          font.format.get (), brush.get ());
}

} // namespace tessaly
