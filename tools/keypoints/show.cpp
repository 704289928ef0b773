#include "show.h"

#include "set_file.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <vector>

namespace tessaly::keypoints
{

namespace
{

using Json = nlohmann::ordered_json;
using Line = std::array<std::string, kKeyPointColumns>;
using Widths = std::array<std::size_t, kKeyPointColumns>;

constexpr std::size_t kNameLines = 3; // the longest name has three words

/// The words of the names, one below the other, and the units.
std::vector<Line> HeaderLines (const Panel& panel)
{
    std::vector<Line> lines (kNameLines + 1);
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
    {
        std::istringstream words (panel.Name (column));
        for (std::size_t line = 0; line < kNameLines; ++line)
            words >> lines[line][column];
        lines.back ()[column] = panel.Units (column);
    }
    return lines;
}

Line ValueLine (const KeyPointSet& table, std::uint32_t row, const Panel& panel)
{
    Line line;
    if (table.HasKeyPoint (row))
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            line[column] = panel.Text (column, table.KeyPointStep (row, column));
    return line;
}

void PrintLine (std::ostream& out, const std::string& start, const Line& line, const Widths& widths)
{
    std::string text = start;
    for (std::size_t column = 0; column < line.size (); ++column)
        text += std::string (widths[column] - line[column].size () + 2, ' ') + line[column];
    out << text.substr (0, text.find_last_not_of (' ') + 1) << '\n';
}

} // namespace

void PrintSet (std::ostream& out, const KeyPointSet& table, const Panel& panel)
{
    auto lines = HeaderLines (panel);
    for (std::uint32_t row = 0; row < kSetRows; ++row)
        lines.push_back (ValueLine (table, row, panel));

    Widths widths{};
    for (const auto& line : lines)
        for (std::size_t column = 0; column < widths.size (); ++column)
            widths[column] = std::max (widths[column], line[column].size ());

    for (std::size_t i = 0; i <= kNameLines; ++i)
        PrintLine (out, " ", lines[i], widths);
    for (std::uint32_t row = 0; row < kSetRows; ++row)
    {
        const auto number = std::to_string (row + 1);
        if (table.HasKeyPoint (row))
            PrintLine (out, number, lines[kNameLines + 1 + row], widths);
        else
            out << number << "  (empty)\n";
    }
}

void PrintJson (std::ostream& out, const std::string& name, const KeyPointSet& table, const Panel& panel)
{
    Json set{ { "name", name }, { "parameters", Json::array () }, { "keyPoints", Json::array () } };
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        set["parameters"].push_back ({ { "name", panel.Name (column) }, { "unit", panel.Units (column) } });
    for (std::uint32_t row = 0; row < kSetRows; ++row)
    {
        Json values;
        Json steps;
        for (std::uint32_t column = 0; table.HasKeyPoint (row) && column < kKeyPointColumns; ++column)
        {
            const auto step = table.KeyPointStep (row, column);
            values[panel.Name (column)] = panel.Text (column, step);
            steps[panel.Name (column)] = step;
        }
        set["keyPoints"].push_back ({ { "number", row + 1 }, { "values", values }, { "steps", steps } });
    }
    out << set.dump (2, ' ', false, Json::error_handler_t::replace) << '\n'; // a file's name may hold any bytes
}

} // namespace tessaly::keypoints
