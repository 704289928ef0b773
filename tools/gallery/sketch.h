#pragma once

#include "cairo_canvas_imp.h"
#include "cairo_handles.h"
#include "geometry.h"
#include "picture_files.h"
#include "picture_surface.h"
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tessaly::gallery
{

using stage::Png;

/// An image being drawn, at one or two pixels a coordinate. Coordinates are those of the present frame; angles are the
/// toolkit's, in degrees clockwise from straight below.
class Sketch
{
public:
    Sketch (std::int32_t width, std::int32_t height, std::int32_t density);

    void BeginFrame (const ZRect& rect); ///< draws within this rectangle from now on, from its top left
    void SetDim (bool on) { dim = on; }  ///< colours as in a section that is switched off

    void RoundRect (double x, double y, double width, double height, double radius, ZColor color);
    void RoundFrame (double x, double y, double width, double height, double radius, ZColor color);
    void Disc (double x, double y, double radius, ZColor color);
    void Arc (ZPoint center, double radius, double fromDegree, double toDegree, double lineWidth, ZColor color);
    void Ray (ZPoint center, double from, double to, double degree, double lineWidth, ZColor color);
    void Line (double x1, double y1, double x2, double y2, double lineWidth, ZColor color);
    void Text (std::string_view text, const ZRect& rect, std::int32_t pixels, std::int32_t style, ZColor color,
               std::int32_t alignment);

    Png ToPng () const { return PngOf (imp); }

private:
    ZColor Shown (ZColor color) const;
    void Use (ZColor color);

    ZCairoCanvasImp imp;
    CairoContext context; // on the same surface
    std::int32_t density;
    ZPoint origin; // of the frame
    bool dim = false;
};

} // namespace tessaly::gallery
