#include "graphs.h"

#include "figures.h"
#include "light.h"
#include <cmath>
#include <string>

namespace tessaly::skin
{

namespace
{

constexpr double kCorner = 3.0;
constexpr double kPlotTop = 5.0; // and rows as far as kPlotTop + kPlotSpan
constexpr double kPlotSpan = 56.0;
constexpr double kFiguresTop = 66.0;

void DrawGlass (Picture& picture)
{
    const auto& frame = picture.Frame ();
    const Box glass{ 0, 0, double (frame.Width ()), double (frame.Height ()) };
    picture.Fill (kPlate);
    BoxLip (picture, glass, kCorner, kEdgeLight); // in the corners, where it joins the panel's
    picture.FillRoundBox (glass, kCorner, kGlass);
}

/// A line one unit wide on a column or row of the plot.
void Upright (Picture& picture, double column, Ink ink)
{
    picture.FillBox ({ column, kPlotTop, 1, kPlotSpan + 1 }, ink);
}

void Level (Picture& picture, double left, double right, double row, Ink ink)
{
    picture.FillBox ({ left, row, right - left + 1, 1 }, ink);
}

} // namespace

void DrawCompressorGraph (Picture& picture)
{
    constexpr double kLeft = 18.0; // 57 columns and rows for 60 dB
    const auto offset = [] (int db) { return std::trunc (kPlotSpan * db / 60.0 + 0.5); }; // as the curve's own
    DrawGlass (picture);
    for (int db = 0; db <= 60; db += 20)
    {
        Level (picture, kLeft, kLeft + kPlotSpan, kPlotTop + offset (db), kGrid);
        Upright (picture, kLeft + offset (db), kGrid);
    }
    for (double step = 2.0; step < kPlotSpan; step += 2.0) // output equals input
        picture.FillBox ({ kLeft + step, kPlotTop + kPlotSpan - step, 1, 1 }, kUnity);

    for (int db = 0; db <= 60; db += 20)
        WriteScale (picture, db == 0 ? "0" : std::to_string (-db), 15, kPlotTop + offset (db) - 2.0, Anchor::kRight,
                    kScale);
    // A pixel to the left, for the eye centres the digits and not the minus.
    WriteScale (picture, "-40", kLeft + offset (20) - 1.0, kFiguresTop, Anchor::kCenter, kScale);
    WriteScale (picture, "-20", kLeft + offset (40) - 1.0, kFiguresTop, Anchor::kCenter, kScale);
    WriteScale (picture, "0", 76, kFiguresTop, Anchor::kRight, kScale);
}

void DrawEqualizerGraph (Picture& picture)
{
    struct Frequency
    {
        double hz;
        const char* text;
    };
    constexpr Frequency kFrequencies[]{ { 50, "50" },   { 100, "100" }, { 200, "200" }, { 500, "500" },
                                        { 1000, "1k" }, { 2000, "2k" }, { 5000, "5k" }, { 10000, "10k" } };
    constexpr double kLeft = 17.0;
    constexpr double kSpan = 188.0; // 189 columns from 20 Hz to 20 kHz
    const auto column = [] (double hz) { return kLeft + std::round (kSpan * std::log10 (hz / 20.0) / 3.0); };
    const auto row = [] (int db) { return kPlotTop + kPlotSpan * 0.5 - 1.4 * db; }; // 20 dB are 28 rows

    DrawGlass (picture);
    for (int db = -20; db <= 20; db += 10)
        Level (picture, kLeft, kLeft + kSpan, row (db), kGrid);
    Upright (picture, kLeft, kGrid);
    Upright (picture, kLeft + kSpan, kGrid);
    for (const auto& frequency : kFrequencies)
        Upright (picture, column (frequency.hz), kGrid);
    Level (picture, kLeft, kLeft + kSpan, row (0), kGridMain);
    for (const double decade : { 100.0, 1000.0, 10000.0 })
        Upright (picture, column (decade), kGridMain);

    for (int db = -20; db <= 20; db += 10)
        WriteScale (picture, std::to_string (db), 14, row (db) - 2.0, Anchor::kRight, kScale);
    WriteScale (picture, "20", 17, kFiguresTop, Anchor::kLeft, kScale);
    for (const auto& frequency : kFrequencies)
        WriteScale (picture, frequency.text, column (frequency.hz) + 0.5, kFiguresTop, Anchor::kCenter, kScale);
    WriteScale (picture, "20k", 208, kFiguresTop, Anchor::kRight, kScale);
}

} // namespace tessaly::skin
