#pragma once

#include "control.h"
#include <cstdint>

namespace tessaly
{

class Channel_Strip;
class ZBitmap;

/// The static curve of the compressor: output level over input level, -60 to 0 dB on both axes, 0 dB at the top right.
/// It shows what the engine computes with the settings as they are now, and takes no input.
///
/// The curve has a point for each column of pixels of the surface, rounded to whole ones of its rows.
class ZAMX_CompGraph final : public ZControl
{
public:
    ZAMX_CompGraph (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);

    void SetPlotRect (const ZRect& rect) { plotRect = rect; }           ///< of the curve, in the parent's coordinates
    void SetBackgrounds (ZBitmap* whileActive, ZBitmap* whileInactive); ///< borrowed, or null
    void SetColors (ZColor whileActive, ZColor whileInactive);
    void SetLineWidth (std::int32_t width) { lineWidth = width; }       ///< coordinates
    void SetStrip (const Channel_Strip* newStrip) { strip = newStrip; } ///< borrowed; null: no curve

    // The axes, in coordinates from the left and the top edge of the plot
    std::int32_t DbToX (double db) const;
    std::int32_t DbToY (double db) const;
    double XToDb (double x) const;
    double PixelToDb (double y) const;

    void SetValueById (std::int32_t controlId, float newValue) override; ///< redraws for what the curve depends on
    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawCurve (ZCanvas& canvas, std::uint32_t time) const;

private:
    double XOf (double db) const; // the axes, not rounded
    double YOf (double db) const;
    void DrawLook (ZCanvas& canvas, std::uint32_t time, const ZBitmap* back, ZColor color) const;

    ZRect plotRect;
    ZBitmap* activeBack = nullptr;   // not owned: the editor's cache
    ZBitmap* inactiveBack = nullptr; // likewise
    ZColor activeColor;
    ZColor inactiveColor;
    std::int32_t lineWidth = 1;
    const Channel_Strip* strip = nullptr; // not owned: the effect's
};

} // namespace tessaly
