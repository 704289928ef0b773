#include "diagram_drawing.h"

#include "label_places.h"
#include "polyline.h"

#include <algorithm>
#include <cmath>

namespace tessaly::plot
{

namespace
{

constexpr Color kInk{ 0.13, 0.14, 0.16 };
constexpr Color kSoftInk{ 0.36, 0.38, 0.42 };
constexpr Color kGrid{ 0.88, 0.89, 0.91 };
constexpr Color kFrame{ 0.55, 0.57, 0.61 };

constexpr double kTitleSize = 16.0;
constexpr double kDiagramTitleSize = 12.5;
constexpr double kTextSize = 11.0;
constexpr double kMargin = 20.0;
constexpr double kLabelDistance = 13.0;

void SetColor (cairo_t* canvas, const Color& color, double opacity = 1.0)
{
    cairo_set_source_rgba (canvas, color.red, color.green, color.blue, opacity);
}

void SetFont (cairo_t* canvas, double size, cairo_font_weight_t weight = CAIRO_FONT_WEIGHT_NORMAL)
{
    cairo_select_font_face (canvas, "sans-serif", CAIRO_FONT_SLANT_NORMAL, weight);
    cairo_set_font_size (canvas, size);
}

double WidthOf (cairo_t* canvas, const std::string& text)
{
    cairo_text_extents_t extents;
    cairo_text_extents (canvas, text.c_str (), &extents);
    return extents.x_advance;
}

/// @param align  part of the text's width that lies left of x: 0, 0.5 or 1
void DrawText (cairo_t* canvas, const std::string& text, double x, double baseline, double align = 0.0)
{
    cairo_move_to (canvas, x - align * WidthOf (canvas, text), baseline);
    cairo_show_text (canvas, text.c_str ());
}

/// From the axes' units to the page.
class Scale
{
public:
    explicit Scale (const Diagram& of)
        : diagram (of)
    {
    }

    double X (double x) const { return diagram.left + diagram.width * Part (diagram.x, x); }
    double Y (double y) const { return diagram.top + diagram.height * (1.0 - Part (diagram.y, y)); }
    double Right () const { return diagram.left + diagram.width; }
    double Bottom () const { return diagram.top + diagram.height; }

private:
    static double Part (const Axis& axis, double value)
    {
        if (axis.logarithmic)
            return std::log (value / axis.first) / std::log (axis.last / axis.first);
        return (value - axis.first) / (axis.last - axis.first);
    }

    const Diagram& diagram; // not owned: the caller's
};

void Line (cairo_t* canvas, double fromX, double fromY, double toX, double toY)
{
    cairo_move_to (canvas, fromX, fromY);
    cairo_line_to (canvas, toX, toY);
    cairo_stroke (canvas);
}

/// Grid lines and their texts.
void DrawTicks (cairo_t* canvas, const Diagram& diagram, const Scale& scale)
{
    constexpr double kGap = 6.0;
    SetFont (canvas, kTextSize);
    cairo_set_line_width (canvas, 1.0);
    for (const Tick& tick : diagram.x.ticks)
    {
        SetColor (canvas, kGrid);
        Line (canvas, scale.X (tick.at), diagram.top, scale.X (tick.at), scale.Bottom ());
        SetColor (canvas, kSoftInk);
        DrawText (canvas, tick.text, scale.X (tick.at), scale.Bottom () + kGap + kTextSize, 0.5);
    }
    for (const Tick& tick : diagram.y.ticks)
    {
        const bool isMiddle = std::abs (tick.at) < 1e-9 && diagram.y.first * diagram.y.last < 0.0;
        SetColor (canvas, isMiddle ? kFrame : kGrid);
        Line (canvas, diagram.left, scale.Y (tick.at), scale.Right (), scale.Y (tick.at));
        SetColor (canvas, kSoftInk);
        DrawText (canvas, tick.text, diagram.left - kGap, scale.Y (tick.at) + 0.36 * kTextSize, 1.0);
    }
}

void DrawAxisTitles (cairo_t* canvas, const Diagram& diagram, const Scale& scale)
{
    constexpr double kBelow = 36.0;
    constexpr double kBeside = 38.0;
    SetFont (canvas, kTextSize);
    SetColor (canvas, kInk);
    DrawText (canvas, diagram.x.title, diagram.left + diagram.width / 2.0, scale.Bottom () + kBelow, 0.5);
    cairo_save (canvas);
    cairo_translate (canvas, diagram.left - kBeside, diagram.top + diagram.height / 2.0);
    cairo_rotate (canvas, -std::acos (0.0));
    DrawText (canvas, diagram.y.title, 0.0, 0.0, 0.5);
    cairo_restore (canvas);
}

/// Title at the left, legend at the right, above the box.
void DrawHead (cairo_t* canvas, const Diagram& diagram, const Scale& scale)
{
    constexpr double kAbove = 9.0;
    constexpr double kSwatch = 16.0;
    constexpr double kGap = 5.0;
    const double baseline = diagram.top - kAbove;
    SetFont (canvas, kDiagramTitleSize, CAIRO_FONT_WEIGHT_BOLD);
    SetColor (canvas, kInk);
    DrawText (canvas, diagram.title, diagram.left, baseline);

    SetFont (canvas, kTextSize);
    double right = scale.Right ();
    for (auto curve = diagram.curves.rbegin (); curve != diagram.curves.rend (); ++curve)
    {
        if (curve->legend.empty ())
            continue;
        SetColor (canvas, kInk);
        DrawText (canvas, curve->legend, right, baseline, 1.0);
        right -= WidthOf (canvas, curve->legend) + kGap;
        SetColor (canvas, curve->color, curve->opacity);
        cairo_set_line_width (canvas, curve->width);
        Line (canvas, right - kSwatch, baseline - 4.0, right, baseline - 4.0);
        right -= kSwatch + 3.0 * kGap;
    }
}

void DrawCurve (cairo_t* canvas, const Curve& curve, const Scale& scale)
{
    constexpr double kTolerance = 0.15;
    if (curve.samples.empty ())
        return;
    std::vector<Place> places;
    for (const Sample& sample : curve.samples)
        places.push_back ({ scale.X (sample.x), scale.Y (sample.y) });
    places = Simplified (places, kTolerance);
    const auto trace = [&]
    {
        for (const Place& place : places)
            cairo_line_to (canvas, place.x, place.y);
    };
    if (curve.fillsToZero)
    {
        constexpr double kTint = 0.25;
        trace ();
        cairo_line_to (canvas, places.back ().x, scale.Y (0.0));
        cairo_line_to (canvas, places.front ().x, scale.Y (0.0));
        SetColor (canvas, curve.color, kTint);
        cairo_fill (canvas);
    }
    trace ();
    SetColor (canvas, curve.color, curve.opacity);
    cairo_set_line_width (canvas, curve.width);
    cairo_stroke (canvas);
}

/// The names of curves at their right ends; a thin line leads to one that has had to give way.
void DrawEndLabels (cairo_t* canvas, const Diagram& diagram, const Scale& scale)
{
    constexpr double kLead = 16.0;
    std::vector<const Curve*> labelled;
    std::vector<double> wanted;
    for (const Curve& curve : diagram.curves)
        if (!curve.endLabel.empty () && !curve.samples.empty ())
        {
            labelled.push_back (&curve);
            wanted.push_back (std::clamp (scale.Y (curve.samples.back ().y), diagram.top, scale.Bottom ()));
        }
    const auto places = LabelPlaces (wanted, kLabelDistance, diagram.top, scale.Bottom ());
    SetFont (canvas, kTextSize, CAIRO_FONT_WEIGHT_BOLD);
    for (std::size_t i = 0; i < labelled.size (); ++i)
    {
        SetColor (canvas, labelled[i]->color);
        cairo_set_line_width (canvas, 0.8);
        Line (canvas, scale.Right () + 1.0, wanted[i], scale.Right () + kLead, places[i]);
        DrawText (canvas, labelled[i]->endLabel, scale.Right () + kLead + 3.0, places[i] + 0.36 * kTextSize);
    }
}

void DrawDiagram (cairo_t* canvas, const Diagram& diagram)
{
    const Scale scale (diagram);
    DrawTicks (canvas, diagram, scale);
    DrawAxisTitles (canvas, diagram, scale);
    DrawHead (canvas, diagram, scale);

    cairo_save (canvas);
    cairo_rectangle (canvas, diagram.left, diagram.top, diagram.width, diagram.height);
    cairo_clip (canvas);
    for (const Curve& curve : diagram.curves)
        DrawCurve (canvas, curve, scale);
    cairo_restore (canvas);

    SetColor (canvas, kFrame);
    cairo_set_line_width (canvas, 1.0);
    cairo_rectangle (canvas, diagram.left, diagram.top, diagram.width, diagram.height);
    cairo_stroke (canvas);
    DrawEndLabels (canvas, diagram, scale);
}

/// As much of the text as there is room for, which may be a long path.
std::string Fitting (cairo_t* canvas, std::string text, double room)
{
    if (WidthOf (canvas, text) <= room)
        return text;
    while (!text.empty () && WidthOf (canvas, text + "\u2026") > room)
    {
        const auto isWithin = [&] { return (static_cast<unsigned char> (text.back ()) & 0xC0U) == 0x80U; };
        while (text.size () > 1 && isWithin ()) // the bytes of one character go together
            text.pop_back ();
        text.pop_back ();
    }
    return text + "\u2026";
}

} // namespace

void DrawPage (cairo_t* canvas, const Page& page)
{
    cairo_set_source_rgb (canvas, 1.0, 1.0, 1.0);
    cairo_paint (canvas);
    cairo_set_line_join (canvas, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap (canvas, CAIRO_LINE_CAP_ROUND);

    const double room = page.width - 2.0 * kMargin;
    SetFont (canvas, kTitleSize, CAIRO_FONT_WEIGHT_BOLD);
    SetColor (canvas, kInk);
    DrawText (canvas, Fitting (canvas, page.title, room), kMargin, kMargin + 12.0);
    SetFont (canvas, kTextSize);
    SetColor (canvas, kSoftInk);
    DrawText (canvas, Fitting (canvas, page.note, room), kMargin, kMargin + 30.0);
    for (const Diagram& diagram : page.diagrams)
        DrawDiagram (canvas, diagram);
}

} // namespace tessaly::plot
