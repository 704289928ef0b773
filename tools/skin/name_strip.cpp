#include "name_strip.h"

#include "light.h"
#include <cairo.h>

namespace tessaly::skin
{

void DrawNameStrip (Picture& picture)
{
    constexpr Box kStrip{ 0, 0, 217, 20 };
    constexpr double kCorner = 3.0;
    picture.Fill (kBench);
    BoxLip (picture, kStrip, kCorner, kEdgeLight);
    picture.FillRoundBox (kStrip, kCorner, kGlass);
    picture.FillBox ({ 197, 4, 1, 12 }, kGridMain);
    cairo_t* context = picture.Context ();
    cairo_move_to (context, 204.5, 8.5);
    cairo_line_to (context, 207.5, 11.5);
    cairo_line_to (context, 210.5, 8.5);
    cairo_set_line_cap (context, CAIRO_LINE_CAP_ROUND);
    picture.StrokePath (1.4, kFigure);
    cairo_set_line_cap (context, CAIRO_LINE_CAP_BUTT);
}

} // namespace tessaly::skin
