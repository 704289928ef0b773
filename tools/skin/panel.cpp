#include "panel.h"

#include "bench_edge.h"
#include "labels.h"
#include "light.h"
#include <cairo.h>
#include <cmath>

namespace tessaly::skin
{

namespace
{

constexpr double kWidth = 560.0;
constexpr double kHeight = 315.0;
constexpr double kHeaderHeight = 34.0;

constexpr double kWellCorner = 2.0;
constexpr Box kValueWells[]{
    { 105, 65, 31, 13 },  { 105, 83, 31, 13 },  { 105, 101, 31, 13 }, { 105, 179, 31, 13 },
    { 105, 197, 31, 13 }, { 105, 215, 31, 13 }, { 188, 220, 29, 13 }, // Drive
    { 317, 171, 31, 13 }, { 317, 189, 31, 13 },                       // Low
    { 404, 153, 31, 13 }, { 404, 171, 31, 13 }, { 404, 189, 31, 13 }, { 491, 171, 31, 13 },
    { 491, 189, 31, 13 }, { 491, 223, 31, 13 },
};
constexpr Box kMeterWells[]{ { 242, 57, 9, 75 }, { 510, 57, 9, 75 } };
constexpr double kScreenCorner = 3.0;
constexpr Box kScreens[]{ { 156, 57, 80, 75 }, { 285, 57, 211, 75 } }; // of the graphs, which draw themselves

struct Rule
{
    double left;
    double right;
    double y;
};
constexpr Rule kRules[]{ { 29, 146, 156 }, { 372, 522, 212 } };

constexpr Point kDriveMiddle{ 202.0, 191.0 };
constexpr Box kBarBed{ 198, 304, 164, 2 };
constexpr double kBarTicksTop = 309.0;

void DrawGround (Picture& picture)
{
    const double d = picture.Pixel ();
    picture.Fill (kBench);
    picture.FillBox ({ 0, kHeaderHeight, kWidth, kBenchTop + 12.0 - kHeaderHeight }, kPlate);
    picture.FillBox ({ 0, kHeaderHeight, kWidth, 1 }, kEdgeDark);
    picture.FillBox ({ 0, kHeaderHeight + 1, kWidth, d }, kEdgeLight);
    // The panel's own upper and lower edge, so that it ends well in a host's window of any colour.
    picture.FillBox ({ 0, 0, kWidth, d }, kEdgeLight.At (0.6));
    picture.FillBox ({ 0, kHeight - d, kWidth, d }, kEdgeDark);
}

void DrawBenchEdge (Picture& picture)
{
    const double d = picture.Pixel ();
    AddBenchEdge (picture, -0.5);
    picture.StrokePath (1.0, kEdgeDark);
    AddBench (picture);
    picture.FillPath (kBench);
    AddBenchEdge (picture, d * 0.5);
    picture.StrokePath (d, kBenchEdge);
    picture.FillBox ({ 0, kHeight - d, kWidth, d }, kEdgeDark);
}

void DrawWell (Picture& picture, const Box& box)
{
    BoxLip (picture, box, kWellCorner, kEdgeLight);
    picture.FillRoundBox (box, kWellCorner, kGlass);
}

void DrawRule (Picture& picture, const Rule& rule)
{
    picture.FillBox ({ rule.left, rule.y, rule.right - rule.left, 1 }, kEdgeDark);
    picture.FillBox ({ rule.left, rule.y + 1, rule.right - rule.left, picture.Pixel () }, kEdgeLight);
}

void DrawDriveTrack (Picture& picture)
{
    picture.Arc (kDriveMiddle, 25.5, 30, 330, 4, kEdgeDark);
    picture.Arc (kDriveMiddle, 25.5, 30, 330, 3, kGlass);
}

void DrawLensBed (Picture& picture)
{
    const double d = picture.Pixel ();
    picture.Disc (kLensMiddle, 39.0 - d, kGlass);
    LowerLip (picture, kLensMiddle, 39.0 - d * 0.5, d, kBenchEdge);
    picture.Arc (kLensMiddle, 36.5, 60, 300, 3, kUnlitTrack);
}

void DrawBarBed (Picture& picture)
{
    picture.FillBox (kBarBed, kGlass);
    picture.FillBox ({ kBarBed.x, kBarBed.y + kBarBed.height, kBarBed.width, picture.Pixel () }, kEdgeLight);
    for (int k = 0; k <= 8; ++k)
    {
        const double x = kBarBed.x + std::round ((kBarBed.width - 1.0) * k / 8.0);
        picture.FillBox ({ x, kBarTicksTop, 1, 2 }, k % 4 == 0 ? kScale : kMinorTick);
    }
}

/// The whole panel, whatever of it the frame shows, with the labels of these groups dimmed.
void DrawAll (Picture& picture, std::uint32_t off)
{
    DrawGround (picture);
    for (const Box& screen : kScreens)
        BoxLip (picture, screen, kScreenCorner, kEdgeLight);
    for (const Box& well : kValueWells)
        DrawWell (picture, well);
    for (const Box& well : kMeterWells)
        DrawWell (picture, well);
    for (const Rule& rule : kRules)
        DrawRule (picture, rule);
    DrawDriveTrack (picture);
    DrawBenchEdge (picture);
    DrawLensBed (picture);
    DrawBarBed (picture);
    DrawLabels (picture, off);
    if (off & kEqualizerLabels)
        DrawBandNamesOff (picture);
}

/// The part of the panel that begins at `place`, in the rectangle of the picture. It is copied out of a whole panel:
/// drawn by itself, a smoothed edge can come out a shade different where the clip cuts it.
void CopyPart (Picture& picture, const ZRect& rect, Point place, std::uint32_t off)
{
    const double density = picture.Density ();
    Picture panel (static_cast<std::int32_t> (kWidth), static_cast<std::int32_t> (kHeight),
                   static_cast<std::int32_t> (density));
    DrawAll (panel, off);
    picture.BeginFrame (rect);
    cairo_t* context = picture.Context ();
    cairo_save (context);
    cairo_identity_matrix (context);
    cairo_set_source_surface (context, panel.Surface (), (rect.left - place.x) * density,
                              (rect.top - place.y) * density);
    cairo_paint (context);
    cairo_restore (context);
}

} // namespace

void DrawPanel (Picture& picture)
{
    DrawAll (picture, kAlwaysLit);
}

void DrawCompressorOff (Picture& picture)
{
    CopyPart (picture, { 0, 0, 209, 176 }, { 27, 57 }, kCompressorLabels);
}

void DrawEqualizerOff (Picture& picture)
{
    CopyPart (picture, { 0, 0, 250, 79 }, { 283, 138 }, kEqualizerLabels);
    picture.BeginFrame ({ 0, 79, 250, 80 });
    picture.Fill (kPlate);
    CopyPart (picture, { 0, 80, 250, 101 }, { 283, 218 }, kTotalGainLabels);
}

void DrawMeterCover (Picture& picture)
{
    CopyPart (picture, { 0, 0, 9, 74 }, { 501, 58 }, kAlwaysLit);
}

} // namespace tessaly::skin
