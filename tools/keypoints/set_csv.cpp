#include "set_csv.h"

#include "csv.h"
#include "set_error.h"
#include "set_file.h"

#include <algorithm>
#include <array>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace tessaly::keypoints
{

namespace
{

constexpr const char* kNumberColumn = "Key point";

using Fields = std::vector<std::string_view>;

/// @return letters in lower case, blanks alike
std::string KeyOf (std::string_view name)
{
    std::string key;
    for (const char c : Lowered (Trimmed (name)))
        if (c != ' ' || !key.ends_with (' '))
            key += c;
    return key;
}

/// What the header line says about the fields of the lines below it.
class Header
{
public:
    Header (const Fields& fields, const Panel& panel)
        : count (fields.size ())
    {
        for (std::size_t i = 0; i < fields.size (); ++i)
            Take (fields[i], i, panel);
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            if (!places[column])
                throw SetError ("the header does not name \"" + panel.Name (column) + "\"");
    }

    bool IsNumbered () const { return number.has_value (); }
    std::size_t Count () const { return count; }
    std::string_view Number (const Fields& fields) const { return fields[*number]; }
    std::string_view Value (const Fields& fields, std::uint32_t column) const { return fields[*places[column]]; }

private:
    void Take (std::string_view name, std::size_t place, const Panel& panel)
    {
        auto* taken = KeyOf (name) == KeyOf (kNumberColumn) ? &number : nullptr;
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            if (KeyOf (name) == KeyOf (panel.Name (column)))
                taken = &places[column];
        if (taken == nullptr)
            throw SetError ("the header names \"" + std::string (name) + "\", which is no parameter of a set");
        if (*taken)
            throw SetError ("the header names \"" + std::string (name) + "\" twice");
        *taken = place;
    }

    std::size_t count;
    std::optional<std::size_t> number;
    std::array<std::optional<std::size_t>, kKeyPointColumns> places;
};

/// Fills a table from the lines below the header.
class Reader
{
public:
    Reader (const Header& from, char partedBy, const Panel& with)
        : header (from)
        , separator (partedBy)
        , panel (with)
    {
    }

    void Take (std::string_view line, int lineNumber)
    {
        const auto fields = CsvFields (line, separator);
        if (Trimmed (line).empty ())
        {
            row += header.IsNumbered () ? 0 : 1;
            return;
        }
        place = "line " + std::to_string (lineNumber);
        if (fields.size () != header.Count ())
            throw SetError (place + ": there are " + std::to_string (fields.size ()) + " fields where the header has " +
                            std::to_string (header.Count ()));
        row = header.IsNumbered () ? NumberedRow (header.Number (fields)) : row + 1;
        place = "row " + std::to_string (row) + " (" + place + ")";
        if (row > static_cast<int> (kSetRows))
            throw SetError (place + ": a set has nine key points");
        ReadRow (fields, table.rows[static_cast<std::size_t> (row) - 1]);
    }

    const KeyPointSet& Table () const { return table; }

private:
    int NumberedRow (std::string_view text)
    {
        const bool valid = text.size () == 1 && text[0] >= '1' && text[0] <= '9';
        if (!valid)
            throw SetError (place + ", \"" + kNumberColumn + "\": \"" + std::string (text) +
                            "\" is no number from 1 to 9");
        const auto number = static_cast<std::size_t> (text[0] - '0');
        if (std::exchange (seen[number], true))
            throw SetError (place + ", \"" + kNumberColumn + "\": " + std::string (text) + " comes twice");
        return static_cast<int> (number);
    }

    void ReadRow (const Fields& fields, KeyPointRow& steps) const
    {
        std::uint32_t empty = 0;
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            empty += header.Value (fields, column).empty () ? 1U : 0U;
        if (empty == kKeyPointColumns)
            return;
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            steps[column] = ReadValue (header.Value (fields, column), column);
    }

    std::int16_t ReadValue (std::string_view text, std::uint32_t column) const
    {
        if (const auto step = panel.Step (column, WithDecimalPoint (text)))
            return *step;
        throw SetError (place + ", \"" + panel.Name (column) + "\": " +
                        (text.empty ()
                             ? "no value, in a row that has others"
                             : "\"" + std::string (text) + "\" is no value; it takes " + panel.RangeText (column)));
    }

    const Header& header; // not owned: the caller's
    char separator;
    const Panel& panel; // not owned: the caller's
    KeyPointSet table = EmptySet ();
    std::array<bool, kSetRows + 1> seen{}; // by number, for numbered lines
    int row = 0;                           // of the last line, from 1
    std::string place;                     // of the present line, for messages
};

constexpr std::size_t kLargestTable = 1 << 20; // bytes; nine rows are some hundred each

/// As std::getline, but a line that is longer than any table ends there.
bool BoundedLine (std::istream& in, std::string& line)
{
    line.clear ();
    for (int c = in.get (); c != std::istream::traits_type::eof (); c = in.get ())
    {
        if (c == '\n')
            return true;
        line.push_back (static_cast<char> (c));
        if (line.size () > kLargestTable)
            return true;
    }
    return !line.empty ();
}

} // namespace

KeyPointSet ReadCsv (std::istream& in, const Panel& panel)
{
    std::optional<Header> header;
    std::optional<Reader> reader;
    std::string line;
    std::size_t size = 0;
    for (int lineNumber = 1; BoundedLine (in, line); ++lineNumber)
    {
        if ((size += line.size () + 1) > kLargestTable)
            throw SetError ("it is far too large for a table of key points");
        DropByteOrderMark (line);
        if (Trimmed (line).starts_with ('#') || (!header && Trimmed (line).empty ()))
            continue;
        if (header)
            reader->Take (line, lineNumber);
        else
        {
            const char separator = CsvSeparator (line);
            reader.emplace (header.emplace (CsvFields (line, separator), panel), separator, panel);
        }
    }
    if (!in.eof ())
        throw SetError ("it cannot be read");
    if (!header)
        throw SetError ("it is empty");
    return reader->Table ();
}

void WriteCsv (std::ostream& out, const KeyPointSet& table, const Panel& panel)
{
    out << kNumberColumn;
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        out << ',' << panel.Name (column);
    out << '\n';
    for (std::uint32_t row = 0; row < kSetRows; ++row)
    {
        out << row + 1;
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
            out << ',' << (table.HasKeyPoint (row) ? panel.Text (column, table.KeyPointStep (row, column)) : "");
        out << '\n';
    }
}

} // namespace tessaly::keypoints
