#include "lens.h"

#include "light.h"
#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace tessaly::skin
{

namespace
{

constexpr int kSides = 12;
constexpr double kStep = 360.0 / kSides;
constexpr double kLightReach = 58.0; // degrees from the pointer
constexpr Ink kTopEdge = Hex (0xDCE8ED);

/// Shades as the facet leans: those with the apex outside face the light, the others lean away.
Ink FacetInk (double degree, bool apexOutside)
{
    const double u = Facing (degree);
    const double w = std::pow ((1.0 + u) * 0.5, 1.15);
    const double glint = std::pow (std::max (0.0, u), 3.0);
    return Mix (kFacetDark, kFacetLight, apexOutside ? 0.07 + 0.40 * w + 0.24 * glint : 0.02 + 0.25 * w + 0.10 * glint);
}

/// How much of the pointer's light falls on a facet this far from it.
double Tint (const Lens& lens, double degreesAway, bool isPointer)
{
    const double fallen = std::pow (std::max (0.0, 1.0 - degreesAway / kLightReach), 1.5) * lens.lightShare;
    return isPointer ? fallen : 0.55 * fallen;
}

void FillFacet (Picture& picture, const Point (&corners)[3], Ink ink)
{
    picture.FillPolygon (corners, ink);
    for (const Point& corner : corners)
        cairo_line_to (picture.Context (), corner.x, corner.y);
    cairo_close_path (picture.Context ());
    picture.StrokePath (0.3, ink); // in its own colour: what is below would shine through the smoothed seams
}

} // namespace

void DrawLens (Picture& picture, const Lens& lens)
{
    const auto outer = [&lens] (double degree) { return drawing::OnCircle (lens.center, lens.outer, degree); };
    const auto inner = [&lens] (double degree) { return drawing::OnCircle (lens.center, lens.inner, degree); };
    const auto away = [] (double turn) { return std::min (turn, 360.0 - turn); };
    for (int side = kSides - 1; side >= 0; --side) // the pointer's own facet last, above its neighbours' edges
    {
        const double turn = kStep * side;
        const double degree = lens.pointerDegree + turn;
        const double between = degree + kStep * 0.5;
        FillFacet (picture, { inner (between), outer (degree), outer (degree + kStep) },
                   Mix (FacetInk (between, false), lens.light, Tint (lens, away (turn + kStep * 0.5), false)));
        FillFacet (picture, { outer (degree), inner (degree - kStep * 0.5), inner (between) },
                   Mix (FacetInk (degree, true), lens.light, Tint (lens, away (turn), side == 0)));
    }
    for (int side = 0; side < kSides; ++side)
    {
        const double degree = lens.pointerDegree + kStep * side;
        const double shine = 0.34 * Facing (degree + kStep * 0.5);
        if (shine <= 0.0)
            continue;
        const Point from = outer (degree);
        const Point to = outer (degree + kStep);
        cairo_move_to (picture.Context (), from.x, from.y);
        cairo_line_to (picture.Context (), to.x, to.y);
        picture.StrokePath (picture.Pixel (), kTopEdge.At (shine));
    }
}

} // namespace tessaly::skin
