#include "clip_guard.h"
#include "near_points.h"
#include "win_gdiplus_bitmap_imp.h"
#include "win_gdiplus_canvas_imp.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr float kOpaque = 255.0F;

/// Scaled images are sampled well, and their edges stay where they are, for the length of one call.
class Sampling
{
public:
    explicit Sampling (Gdiplus::GpGraphics* on)
        : graphics (on)
    {
        gdip::GdipSetInterpolationMode (graphics, Gdiplus::InterpolationModeHighQualityBicubic);
        gdip::GdipSetPixelOffsetMode (graphics, Gdiplus::PixelOffsetModeHalf);
    }
    ~Sampling ()
    {
        gdip::GdipSetInterpolationMode (graphics, Gdiplus::InterpolationModeDefault);
        gdip::GdipSetPixelOffsetMode (graphics, Gdiplus::PixelOffsetModeDefault);
    }
    Sampling (const Sampling&) = delete;
    Sampling& operator= (const Sampling&) = delete;

private:
    Gdiplus::GpGraphics* graphics; // not owned
};

GdiplusObject<Gdiplus::GpImageAttributes> MakeAttributes ()
{
    Gdiplus::GpImageAttributes* made = nullptr;
    gdip::GdipCreateImageAttributes (&made);
    return GdiplusObject<Gdiplus::GpImageAttributes> (made);
}

} // namespace

struct ZWinGDIPlusCanvasImp::CopySource
{
    Gdiplus::GpImage* image = nullptr; // not owned; null: nothing is drawn
    PixelGrid grid{ 1.0 };
};

/// One of another back end has no image for this one.
ZWinGDIPlusCanvasImp::CopySource ZWinGDIPlusCanvasImp::SourceOf (ZCanvasImp& canvas)
{
    const auto* const ours = dynamic_cast<ZWinGDIPlusCanvasImp*> (&canvas);
    return ours != nullptr ? CopySource{ ours->GetImage (), ours->grid } : CopySource{};
}

ZWinGDIPlusCanvasImp::CopySource ZWinGDIPlusCanvasImp::SourceOf (ZBitmapImp& bitmap)
{
    const auto* const ours = dynamic_cast<ZWinGDIPlusBitmapImp*> (&bitmap);
    return ours != nullptr ? CopySource{ ours->GetImage (), PixelGrid (ours->GetDensity ()) } : CopySource{};
}

void ZWinGDIPlusCanvasImp::Copy (const CopySource& source, const ZRect& rect, const ZRect& from,
                                 const Gdiplus::GpImageAttributes* attributes)
{
    if (source.image == nullptr || rect.IsEmpty () || from.IsEmpty ())
        return;
    const ZRect to = grid.Pixels (rect);
    const ZRect pixels = source.grid.Pixels (from);
    const ClipGuard guard (*this);
    Note (to);
    const bool stretched = to.Width () != pixels.Width () || to.Height () != pixels.Height ();
    std::optional<Sampling> sampling;
    if (stretched)
        sampling.emplace (GetGraphics ());
    gdip::GdipDrawImageRectRectI (GetGraphics (), source.image, to.left, to.top, to.Width (), to.Height (), pixels.left,
                                  pixels.top, pixels.Width (), pixels.Height (), Gdiplus::UnitPixel, attributes,
                                  nullptr, nullptr);
}

void ZWinGDIPlusCanvasImp::CopyKeyed (const CopySource& source, const ZRect& rect, ZPoint from, ZColor key)
{
    const auto attributes = MakeAttributes ();
    const auto color = Gdiplus::Color (key.red, key.green, key.blue).GetValue ();
    gdip::GdipSetImageAttributesColorKeys (attributes.get (), Gdiplus::ColorAdjustTypeDefault, TRUE, color, color);
    Copy (source, rect, AreaAt (from, rect), attributes.get ());
}

void ZWinGDIPlusCanvasImp::CopyAlpha (const CopySource& source, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    constexpr int kAlpha = 3;
    Gdiplus::ColorMatrix matrix{};
    for (int i = 0; i < 5; ++i)
        matrix.m[i][i] = 1.0F;
    matrix.m[kAlpha][kAlpha] = static_cast<float> (alpha) / kOpaque;
    const auto attributes = MakeAttributes ();
    gdip::GdipSetImageAttributesColorMatrix (attributes.get (), Gdiplus::ColorAdjustTypeDefault, TRUE, &matrix, nullptr,
                                             Gdiplus::ColorMatrixFlagsDefault);
    Copy (source, rect, AreaAt (from, rect), attributes.get ());
}

void ZWinGDIPlusCanvasImp::CopyCanvasPlain (ZCanvasImp& source, const ZRect& rect, ZPoint from)
{
    Copy (SourceOf (source), rect, AreaAt (from, rect), nullptr);
}

void ZWinGDIPlusCanvasImp::CopyCanvasKeyed (ZCanvasImp& source, const ZRect& rect, ZPoint from, ZColor key)
{
    CopyKeyed (SourceOf (source), rect, from, key);
}

void ZWinGDIPlusCanvasImp::CopyCanvasAlpha (ZCanvasImp& source, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    CopyAlpha (SourceOf (source), rect, from, alpha);
}

void ZWinGDIPlusCanvasImp::StretchCanvas (ZCanvasImp& source, const ZRect& rect, const ZRect& from)
{
    Copy (SourceOf (source), rect, from, nullptr);
}

void ZWinGDIPlusCanvasImp::DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from)
{
    Copy (SourceOf (bitmap), rect, AreaAt (from, rect), nullptr);
}

void ZWinGDIPlusCanvasImp::DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor key)
{
    CopyKeyed (SourceOf (bitmap), rect, from, key);
}

void ZWinGDIPlusCanvasImp::DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha)
{
    CopyAlpha (SourceOf (bitmap), rect, from, alpha);
}

void ZWinGDIPlusCanvasImp::StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from)
{
    Copy (SourceOf (bitmap), rect, from, nullptr);
}

} // namespace tessaly
