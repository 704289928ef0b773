#pragma once

#include "text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly
{

// Tables of fields, a row a line, with or without double quotes around a field. Fields are parted by commas; or, where
// the first row has one, by semicolons or tabs, as spreadsheets write them that have a decimal comma.

/// @return what parts the fields of a table whose first row this is
inline char CsvSeparator (std::string_view firstRow)
{
    for (const char separator : { ';', '\t' })
        if (firstRow.find (separator) != std::string_view::npos)
            return separator;
    return ',';
}

/// @return a number of a table with its decimal comma, if it has one, as a point
inline std::string WithDecimalPoint (std::string_view field)
{
    std::string number (field);
    std::ranges::replace (number, ',', '.');
    return number;
}

/// @return the field without the blanks and the quotes around it
inline std::string_view UnquotedField (std::string_view field)
{
    field = Trimmed (field);
    if (field.size () >= 2 && field.front () == '"' && field.back () == '"')
        field = Trimmed (field.substr (1, field.size () - 2));
    return field;
}

inline std::vector<std::string_view> CsvFields (std::string_view line, char separator = ',')
{
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size (); ++i)
    {
        quoted = quoted != (line[i] == '"');
        if (line[i] != separator || quoted)
            continue;
        fields.push_back (UnquotedField (line.substr (start, i - start)));
        start = i + 1;
    }
    fields.push_back (UnquotedField (line.substr (start)));
    return fields;
}

/// Some editors begin a file of UTF-8 so.
inline void DropByteOrderMark (std::string& line)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (line.starts_with (kMark))
        line.erase (0, kMark.size ());
}

} // namespace tessaly
