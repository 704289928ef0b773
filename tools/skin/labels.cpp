#include "labels.h"

#include "bench_edge.h"
#include "mark.h"
#include <cairo.h>
#include <cmath>
#include <string>

namespace tessaly::skin
{

namespace
{

struct Label
{
    std::string_view text;
    double x;
    double baseline;
    Anchor anchor;
    TextStyle style;
    Ink ink;
    std::uint32_t group;
};

constexpr Anchor kL = Anchor::kLeft;
constexpr Anchor kC = Anchor::kCenter;
constexpr Anchor kR = Anchor::kRight;

constexpr Label kLabels[]{
    { "COMPRESSOR", 29, 52, kL, kHeadingStyle, kHeading, kAlwaysLit },
    { "EQUALIZER", 285, 52, kL, kHeadingStyle, kHeading, kAlwaysLit },
    // As large as headings: a size below, the gap of the G closes at density 1, and it is read as an O.
    { "GR", 246.5, 52, kC, kHeadingStyle, kLabel, kAlwaysLit },
    { "OUT", 514.5, 52, kC, kHeadingStyle, kLabel, kAlwaysLit },
    { "DRIVE", 202, 155, kC, kHeadingStyle, kHeading, kAlwaysLit },
    { "Attack", 29, 75, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "Release", 29, 93, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "Ratio", 29, 111, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "KNEE", 29, 131, kL, kSubheadingStyle, kLabel, kCompressorLabels },
    { "SIDE CHAIN", 29, 171, kL, kSubheadingStyle, kLabel, kCompressorLabels },
    { "Q", 29, 189, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "Freq", 29, 207, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "Gain", 29, 225, kL, kLabelStyle, kLabel, kCompressorLabels },
    { "F", 285, 181, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "G", 285, 199, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "Q", 372, 163, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "F", 372, 181, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "G", 372, 199, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "F", 459, 181, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "G", 459, 199, kL, kLabelStyle, kLabel, kEqualizerLabels },
    { "Total Gain", 466, 233, kR, kLabelStyle, kLabel, kTotalGainLabels },
};

constexpr Label kBandNames[]{
    { "LOW", 285, 148, kL, kBandStyle, kLabelOff, kEqualizerLabels },
    { "MID", 372, 148, kL, kBandStyle, kLabelOff, kEqualizerLabels },
    { "HIGH", 459, 148, kL, kBandStyle, kLabelOff, kEqualizerLabels },
};

struct ScaleMark
{
    std::string_view text;
    double middle; // row
};

constexpr ScaleMark kReductionMarks[]{ { "1", 63 }, { "3", 75 }, { "6", 93 }, { "12", 111 }, { "24", 129 } };
constexpr ScaleMark kOutputMarks[]{
    { "0", 61 }, { "6", 74 }, { "12", 86 }, { "18", 98 }, { "30", 110 }, { "60", 128 }
};
constexpr double kReductionMarksX = 254.0;
constexpr double kOutputMarksX = 522.0;
constexpr double kDriveEndsTop = 215.0;

void WriteLabel (Picture& picture, const Label& label, Ink ink)
{
    Write (picture, label.text, label.style, label.x, label.baseline, label.anchor, ink);
}

void DrawWordmark (Picture& picture)
{
    constexpr double kBaseline = 21.0;
    constexpr double kTracking = kNameStyle.tracking; // belongs to the gap after a word
    DrawMark (picture, { 39.5, 16.5 }, 8.0);
    const double first = Write (picture, "TESSALY", kNameStyle, 53, kBaseline, kL, kHeading);
    const double second = Write (picture, "BENCH", kSurnameStyle, first + 9.0 - kTracking, kBaseline, kL, kLabel);
    Write (picture, "[m]", kEditionStyle, second + 8.0 - kTracking, kBaseline, kL, kLightRest);
}

void DrawScales (Picture& picture)
{
    for (const auto& mark : kReductionMarks)
        WriteScale (picture, mark.text, kReductionMarksX, mark.middle - 2.0, kL, kScale);
    for (const auto& mark : kOutputMarks)
        WriteScale (picture, mark.text, kOutputMarksX, mark.middle - 2.0, kL, kScale);
    WriteScale (picture, "0", 183, kDriveEndsTop, kC, kScale);
    WriteScale (picture, "10", 222, kDriveEndsTop, kC, kScale);
}

// The shape of each band's filter: 12 x 8, a line of 1

void AddShelf (cairo_t* path, double left, double from, double to)
{
    cairo_move_to (path, left, from);
    cairo_line_to (path, left + 3.5, from);
    cairo_curve_to (path, left + 6.5, from, left + 5.5, to, left + 8.5, to);
    cairo_line_to (path, left + 12.0, to);
}

void AddBell (cairo_t* path, double left, double foot, double peak)
{
    cairo_move_to (path, left, foot);
    cairo_line_to (path, left + 1.5, foot);
    cairo_curve_to (path, left + 4.5, foot, left + 4.5, peak, left + 6.0, peak);
    cairo_curve_to (path, left + 7.5, peak, left + 7.5, foot, left + 10.5, foot);
    cairo_line_to (path, left + 12.0, foot);
}

void DrawBandGlyphs (Picture& picture, Ink ink)
{
    constexpr double kHigh = 142.5;
    constexpr double kLow = 147.5;
    AddShelf (picture.Context (), 336, kHigh, kLow);
    AddBell (picture.Context (), 423, kLow, kHigh);
    AddShelf (picture.Context (), 510, kLow, kHigh);
    picture.StrokePath (1.0, ink);
}

// Round the morph dial

constexpr double kMorphBaseline = 302.0;

/// The middle of a number on its baseline; they begin with key point 0.
Point NumberPlace (int keyPoint)
{
    constexpr double kRadius = 45.6;
    const Point middle = drawing::OnCircle (kLensMiddle, kRadius, 60.0 + 30.0 * keyPoint);
    return { middle.x, std::round (middle.y + 3.0) };
}

} // namespace

void DrawLabels (Picture& picture, std::uint32_t off)
{
    DrawWordmark (picture);
    DrawScales (picture);
    for (const Label& label : kLabels)
        WriteLabel (picture, label, label.group & off ? kLabelOff : label.ink);
    DrawBandGlyphs (picture, off & kEqualizerLabels ? kShapeOff : kScale);
    DrawMorphLabels (picture, kLabel, kHeading);
}

void DrawMorphLabels (Picture& picture, Ink numbers, Ink word)
{
    for (int k = 0; k < 9; ++k)
    {
        const Point place = NumberPlace (k);
        Write (picture, std::to_string (k + 1), kCaptionStyle, place.x, place.y, kC, numbers);
    }
    Write (picture, "MORPH", kMorphStyle, kLensMiddle.x, kMorphBaseline, kC, word);
}

void CoverMorphLabels (Picture& picture)
{
    for (int k = 0; k < 9; ++k)
    {
        const Point place = NumberPlace (k);
        picture.FillBox ({ std::round (place.x) - 3.0, place.y - 7.0, 6.0, 8.0 }, kBench);
    }
    picture.FillBox ({ kLensMiddle.x - 24.0, kMorphBaseline - 7.0, 48.0, 8.0 }, kBench);
}

void DrawBandNamesOff (Picture& picture)
{
    for (const Label& name : kBandNames)
        WriteLabel (picture, name, name.ink);
}

} // namespace tessaly::skin
