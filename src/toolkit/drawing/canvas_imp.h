#pragma once

#include "geometry.h"
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace tessaly
{

class ZBitmapImp;

enum LineStyle : std::int32_t
{
    kSolidLine = 0, // and every other value but 1
    kDashedLine = 1
};

/// Bits of a font's style.
enum FontStyle : std::int32_t
{
    kBold = 1,
    kItalic = 2,
    kUnderline = 4
};

/// Bits of the placement of a text in its rectangle. On an axis with several bits the first in this order wins, without
/// one the text is centred.
enum Alignment : std::int32_t
{
    kAlignLeft = 1,
    kAlignCenter = 2,
    kAlignRight = 4,
    kAlignTop = 8,
    kAlignMiddle = 16,
    kAlignBottom = 32
};

/// The seam to the platform's drawing. Coordinates are device coordinates: whole pixels of the surface at scale 1,
/// whatever the density of its pixels. The clip applies to every drawing operation; a new imp has none, draws in opaque
/// black with solid lines one pixel wide with round caps, writes in "Arial" at 12 pixels, and has its pen at (0, 0).
/// Nothing fails: what can't be drawn is not drawn.
class ZCanvasImp
{
public:
    virtual ~ZCanvasImp () = default;

    /// A new imp of the rectangle's size and of this one's density, with transparent pixels of its own and coordinates
    /// from (0, 0). Where the density is no whole number its pixels are parted as those under the rectangle are, so
    /// that a copy to there is one of pixels to pixels.
    virtual std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) = 0;
    virtual double GetScale () const = 0; ///< pixels of the surface a device coordinate: 1, 1.25, 1.5 or 2

    virtual void Save () = 0; ///< the clip belongs to it; brackets nest
    virtual void Restore () = 0;
    virtual void SetClipRect (const ZRect& rect) = 0;    ///< replaces the clip
    virtual void SetClipEllipse (const ZRect& rect) = 0; ///< likewise; it begins a pixel left of and above the rect
    virtual void ClearClip () = 0;
    virtual void Clear (const ZRect& rect) = 0; ///< to fully transparent, within the clip

    virtual void SetColor (ZColor color, std::uint8_t alpha) = 0; ///< of pen and fill
    virtual void SetLineWidth (std::int32_t pixels) = 0;
    virtual void SetLineStyle (std::int32_t style) = 0; ///< of LineStyle
    virtual void MoveTo (ZPoint point) = 0;
    virtual void LineTo (ZPoint point) = 0;         ///< the pen ends at the point
    virtual void FrameRect (const ZRect& rect) = 0; ///< on left, top, right - 1 and bottom - 1
    virtual void FillRect (const ZRect& rect) = 0;
    virtual void FramePolygon (std::span<const ZPoint> points) = 0; ///< closed
    virtual void FillPolygon (std::span<const ZPoint> points) = 0;  ///< even-odd; an outline of its points runs on them

    // Curves, with points between whole coordinates for surfaces that are denser. All points are moved by `offset`.
    // With whole points both draw what MoveTo and LineTo, or FillPolygon above, draw. The pen stays where it is.
    virtual void DrawPolyline (std::span<const ZPointF> points, ZPoint offset) = 0;
    virtual void FillPolygon (std::span<const ZPointF> points, ZPoint offset) = 0;

    virtual void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style) = 0; ///< name: UTF-8
    virtual void SetFontSize (std::int32_t index, std::int32_t style) = 0; ///< "Arial" in kFontSizes [index]
    virtual std::int32_t GetFontSize () const = 0;                         ///< pixels
    virtual std::int32_t GetTextWidth (std::string_view text) = 0;         ///< pixels, rounded up; text: UTF-8
    virtual void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment) = 0; ///< cut at rect

    // Copies of another imp's pixels, blended by the source's alpha. The source is of the same back end; another one,
    // or one without pixels, draws nothing.
    virtual void CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from) = 0;
    virtual void CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key) = 0;
    virtual void CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha) = 0;
    virtual void StretchCanvas (ZCanvasImp& source, const ZRect& rect, const ZRect& from) = 0;
    virtual void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) = 0;
    virtual void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key) = 0;
    virtual void DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha) = 0;
    virtual void StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from) = 0;
};

inline constexpr std::int32_t kFontSizes[]{ 18, 14, 12, 11, 9 }; // pixels, by the index of SetFontSize

} // namespace tessaly
