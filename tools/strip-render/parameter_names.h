#pragma once

#include "parameter_access.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessaly::render
{

/// Every parameter that can be set, by the name a user calls it by: its title, or its number where the plug-in
/// leaves the title empty.
class ParameterNames
{
public:
    struct Entry
    {
        std::string name;
        host::ParameterInfo info;
    };

    explicit ParameterNames (const host::ParameterAccess& parameters);

    const std::vector<Entry>& Entries () const& { return entries; }
    const std::vector<Entry>& Entries () && = delete; // the list goes with the object

    /// Upper and lower case are the same, and so are one blank and several.
    /// @throws RenderError that tells the nearest names when there is no such parameter
    const Entry& Find (std::string_view name) const;

private:
    std::string NearestNames (const std::string& key) const;

    std::vector<Entry> entries;
};

/// Letters to insert, remove or replace to turn one text into the other (Levenshtein).
std::size_t EditDistance (std::string_view a, std::string_view b);

} // namespace tessaly::render
