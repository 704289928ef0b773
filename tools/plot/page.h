#pragma once

#include <string>
#include <vector>

namespace tessaly::plot
{

// A page of diagrams as data; page_file.h writes it.

struct Color
{
    double red = 0.0; ///< 0 to 1, sRGB
    double green = 0.0;
    double blue = 0.0;
};

/// In the units of the axes.
struct Sample
{
    double x = 0.0;
    double y = 0.0;
};

/// A place on an axis that has a line across the diagram and a text.
struct Tick
{
    double at = 0.0;
    std::string text{};
};

struct Axis
{
    std::string title;  ///< with the unit, as "Frequency, Hz"
    double first = 0.0; ///< at the left or at the bottom, may be above `last`
    double last = 1.0;
    bool logarithmic = false;
    std::vector<Tick> ticks;
};

struct Curve
{
    std::vector<Sample> samples{}; ///< by x
    Color color{};
    double width = 1.6;       ///< in units of the page
    double opacity = 1.0;     ///< 0 to 1
    std::string endLabel{};   ///< to the right of the diagram, at the height of the last sample
    std::string legend{};     ///< above the diagram
    bool fillsToZero = false; ///< the area between the curve and 0 is tinted
};

/// Axes with curves. The box is without the texts around it.
struct Diagram
{
    std::string title;
    Axis x;
    Axis y;
    std::vector<Curve> curves; ///< later ones on top
    double left = 0.0;         ///< in units of the page, some 1/96 inch
    double top = 0.0;
    double width = 100.0;
    double height = 100.0;
};

struct Page
{
    double width = 0.0;
    double height = 0.0;
    std::string title;
    std::string note; ///< below the title, small
    std::vector<Diagram> diagrams;
};

} // namespace tessaly::plot
