#include "parameter_names.h"

#include "render_error.h"
#include "text.h"

#include <algorithm>
#include <numeric>

namespace tessaly::render
{

namespace
{

constexpr std::size_t kNamesOffered = 3;

std::string NameOf (const host::ParameterInfo& info)
{
    if (!info.title.empty ())
        return info.title;
    return "Parameter " + std::to_string (info.id);
}

std::string KeyOf (std::string_view name)
{
    std::string key = Lowered (Trimmed (name));
    const auto bothBlank = [] (char a, char b) { return a == ' ' && b == ' '; };
    key.erase (std::unique (key.begin (), key.end (), bothBlank), key.end ());
    return key;
}

} // namespace

ParameterNames::ParameterNames (const host::ParameterAccess& parameters)
{
    for (auto& info : parameters.List ())
        if (!info.IsReadOnly ())
            entries.push_back ({ NameOf (info), info });
}

const ParameterNames::Entry& ParameterNames::Find (std::string_view name) const
{
    const std::string key = KeyOf (name);
    const auto found =
        std::find_if (entries.begin (), entries.end (), [&] (const Entry& entry) { return KeyOf (entry.name) == key; });
    if (found == entries.end ())
        throw RenderError ("no parameter \"" + std::string (Trimmed (name)) + "\"; the nearest are " +
                           NearestNames (key) + " (--list shows all)");
    return *found;
}

std::string ParameterNames::NearestNames (const std::string& key) const
{
    std::vector<std::pair<std::size_t, const Entry*>> byDistance;
    for (const Entry& entry : entries)
        byDistance.emplace_back (EditDistance (key, KeyOf (entry.name)), &entry);
    // Stable: of names as near, the plug-in's order decides.
    std::stable_sort (byDistance.begin (), byDistance.end (),
                      [] (const auto& a, const auto& b) { return a.first < b.first; });

    std::string names;
    for (std::size_t i = 0; i < std::min (kNamesOffered, byDistance.size ()); ++i)
        names += (i == 0 ? "\"" : ", \"") + byDistance[i].second->name + "\"";
    return names;
}

std::size_t EditDistance (std::string_view a, std::string_view b)
{
    // One row of the classic table at a time: row[j] is the distance of a's first i letters to b's first j.
    std::vector<std::size_t> row (b.size () + 1);
    std::iota (row.begin (), row.end (), std::size_t{ 0 });
    for (std::size_t i = 0; i < a.size (); ++i)
    {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size (); ++j)
        {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min ({ replaced, row[j] + 1, row[j + 1] + 1 });
        }
    }
    return row.back ();
}

} // namespace tessaly::render
