#pragma once

#include "text.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessaly
{

// Tables of fields parted by commas, a row a line, with or without double quotes around a field.

/// @return the field without the blanks and the quotes around it
inline std::string_view UnquotedField (std::string_view field)
{
    field = Trimmed (field);
    if (field.size () >= 2 && field.front () == '"' && field.back () == '"')
        field = Trimmed (field.substr (1, field.size () - 2));
    return field;
}

inline std::vector<std::string_view> CsvFields (std::string_view line)
{
    std::vector<std::string_view> fields;
    for (std::size_t comma = line.find (','); comma != std::string_view::npos; comma = line.find (','))
    {
        fields.push_back (UnquotedField (line.substr (0, comma)));
        line.remove_prefix (comma + 1);
    }
    fields.push_back (UnquotedField (line));
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
