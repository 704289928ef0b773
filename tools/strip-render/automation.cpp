#include "automation.h"

#include "csv.h"
#include "render_error.h"
#include "text.h"
#include "typed_value.h"

#include <algorithm>
#include <fstream>
#include <optional>

namespace tessaly::render
{

std::vector<Setting> LastOfEach (const std::vector<Setting>& settings)
{
    std::vector<Setting> kept;
    for (const Setting& setting : settings)
    {
        std::erase_if (kept, [&] (const Setting& earlier) { return earlier.id == setting.id; });
        kept.push_back (setting);
    }
    return kept;
}

Setting ReadSetting (const host::ParameterAccess& parameters, const ParameterNames& names, const std::string& text)
{
    const std::size_t equals = text.find ('=');
    if (equals == std::string::npos)
        throw RenderError ("\"" + text + "\" is no setting; write NAME=VALUE");
    const auto& entry = names.Find (std::string_view (text).substr (0, equals));
    return { entry.info.id, TypedValue (parameters, entry, std::string_view (text).substr (equals + 1)) };
}

namespace
{

bool IsHeader (std::string_view line, char separator)
{
    return Lowered (CsvFields (line, separator).front ()).starts_with ("time");
}

TimedSetting ReadRow (const host::ParameterAccess& parameters, const ParameterNames& names, std::string_view line,
                      char separator)
{
    const auto fields = CsvFields (line, separator);
    if (fields.size () != 3)
        throw RenderError ("a row has three fields: time in seconds, parameter, value");
    const auto seconds = ToNumber (WithDecimalPoint (fields[0]));
    if (!seconds || *seconds < 0.0)
        throw RenderError ("\"" + std::string (fields[0]) + "\" is no time in seconds");
    const auto& entry = names.Find (fields[1]);
    return { *seconds, { entry.info.id, TypedValue (parameters, entry, WithDecimalPoint (fields[2])) } };
}

} // namespace

std::vector<TimedSetting> ReadAutomation (const host::ParameterAccess& parameters, const ParameterNames& names,
                                          const std::filesystem::path& file)
{
    std::ifstream in (file);
    if (!in || std::filesystem::is_directory (file))
        throw RenderError ("cannot read the automation file \"" + file.string () + "\"");

    std::vector<TimedSetting> rows;
    std::optional<char> separator;
    std::string line;
    for (int number = 1; std::getline (in, line); ++number)
    {
        if (number == 1)
            DropByteOrderMark (line);
        const std::string_view content = Trimmed (line);
        if (content.empty () || content.front () == '#')
            continue;
        const bool isFirst = !separator;
        separator = separator.value_or (CsvSeparator (content));
        if (isFirst && IsHeader (content, *separator))
            continue;
        try
        {
            rows.push_back (ReadRow (parameters, names, content, *separator));
        }
        catch (const RenderError& error)
        {
            throw RenderError (file.string () + ", line " + std::to_string (number) + ": " + error.what ());
        }
    }
    if (rows.empty ())
        throw RenderError ("the automation file \"" + file.string () + "\" has no rows");
    std::stable_sort (rows.begin (), rows.end (),
                      [] (const TimedSetting& a, const TimedSetting& b) { return a.seconds < b.seconds; });
    return rows;
}

} // namespace tessaly::render
