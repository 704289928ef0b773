#include "bench_edge.h"

#include <cairo.h>
#include <cmath>

namespace tessaly::skin
{

namespace
{

constexpr double kCollarRadius = 52.0;
constexpr double kFilletRadius = 12.0;
constexpr double kPanelWidth = 560.0;
constexpr double kPanelHeight = 315.0;

} // namespace

void AddBenchEdge (Picture& picture, double below)
{
    cairo_t* path = picture.Context ();
    // Fillets touch the level line and the collar, so their middles lie where both distances are right.
    const double filletY = kBenchTop - kFilletRadius;
    const double aside =
        std::sqrt (std::pow (kCollarRadius + kFilletRadius, 2) - std::pow (kLensMiddle.y - filletY, 2));
    const double meeting = std::atan2 (kLensMiddle.y - filletY, aside); // where fillet and collar touch
    const double quarter = std::acos (0.0);
    const double half = 2.0 * quarter;
    cairo_move_to (path, 0.0, kBenchTop + below);
    cairo_arc_negative (path, kLensMiddle.x - aside, filletY, kFilletRadius + below, quarter, meeting);
    cairo_arc (path, kLensMiddle.x, kLensMiddle.y, kCollarRadius - below, half + meeting, 2.0 * half - meeting);
    cairo_arc_negative (path, kLensMiddle.x + aside, filletY, kFilletRadius + below, half - meeting, quarter);
    cairo_line_to (path, kPanelWidth, kBenchTop + below);
}

void AddBench (Picture& picture)
{
    AddBenchEdge (picture, 0.0);
    cairo_line_to (picture.Context (), kPanelWidth, kPanelHeight);
    cairo_line_to (picture.Context (), 0.0, kPanelHeight);
    cairo_close_path (picture.Context ());
}

} // namespace tessaly::skin
