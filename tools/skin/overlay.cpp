#include "overlay.h"

#include "bench_edge.h"
#include "labels.h"
#include <cairo.h>

namespace tessaly::skin
{

namespace
{

struct Glow
{
    double width;
    double alpha;
};
constexpr Glow kGlows[]{ { 9.0, 0.04 }, { 6.0, 0.06 }, { 3.5, 0.12 }, { 2.0, 0.25 }, { 1.0, 0.95 } };

struct Fade
{
    double x;
    double share;
};
constexpr Fade kFades[]{ { 0, 0.0 }, { 67, 0.25 }, { 202, 1.0 }, { 358, 1.0 }, { 493, 0.25 }, { 560, 0.0 } };

void StrokeGlow (Picture& picture, const Glow& glow)
{
    const double width = picture.Frame ().Width ();
    const CairoPattern pattern (cairo_pattern_create_linear (0.0, 0.0, width, 0.0));
    const auto& [red, green, blue] = kLightTouched.color;
    for (const Fade& fade : kFades)
        cairo_pattern_add_color_stop_rgba (pattern.get (), fade.x / width, red / 255.0, green / 255.0, blue / 255.0,
                                           glow.alpha * fade.share);
    AddBenchEdge (picture, 0.5); // over the line that catches the light at rest
    cairo_set_source (picture.Context (), pattern.get ());
    cairo_set_line_width (picture.Context (), glow.width);
    cairo_stroke (picture.Context ());
}

} // namespace

void DrawOverlay (Picture& picture)
{
    CoverMorphLabels (picture);
    for (const Glow& glow : kGlows)
        StrokeGlow (picture, glow);
    DrawMorphLabels (picture, kLightTouched, kWhite);
}

} // namespace tessaly::skin
