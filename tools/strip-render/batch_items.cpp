#include "batch_items.h"

#include "output_format.h"
#include "pending_file.h"
#include "render_error.h"
#include "text.h"
#include "warning.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

fs::path Place (const fs::path& path)
{
    std::error_code ignored;
    return fs::weakly_canonical (fs::absolute (path), ignored);
}

bool IsBelow (const fs::path& path, const fs::path& folder)
{
    const auto relative = Place (path).lexically_relative (Place (folder));
    return !relative.empty () && *relative.begin () != "..";
}

fs::path OutputName (fs::path name, const std::optional<std::string>& format)
{
    constexpr std::array<std::string_view, 6> kWritten{ ".wav", ".wave", ".flac", ".aiff", ".aif", ".au" };
    const auto container = format ? "." + Lowered (format->substr (0, format->find (':'))) : std::string ();
    if (std::ranges::find (kWritten, container) != kWritten.end ())
        return name.replace_extension (container);
    if (std::ranges::find (kWritten, Lowered (name.extension ().string ())) != kWritten.end ())
        return name;
    return name.replace_extension (".wav");
}

class Collector
{
public:
    explicit Collector (const Options& from)
        : options (from)
    {
    }

    std::vector<BatchItem> items;
    bool leavesFoldersOut = false; // for want of --recursive

    void Add (const fs::path& input, const fs::path& name)
    {
        std::error_code ignored;
        const auto bytes = fs::file_size (input, ignored);
        items.push_back ({ input,
                           options.outFolder / OutputName (name, options.format),
                           ignored ? 0 : static_cast<std::int64_t> (bytes),
                           {} });
    }

    template <typename Iterator>
    void AddFolder (const fs::path& folder)
    {
        std::vector<fs::path> files;
        const bool holdsResults = IsBelow (options.outFolder, folder) && Place (options.outFolder) != Place (folder);
        CheckFolder (folder);
        for (const auto& entry : Iterator (folder, fs::directory_options::skip_permission_denied))
        {
            std::error_code ignored;
            if ((holdsResults && IsBelow (entry.path (), options.outFolder)) || host::IsPendingFile (entry.path ()))
                continue;
            const bool leadsNowhere = entry.is_symlink (ignored) && !entry.exists (ignored);
            if (entry.is_regular_file (ignored) || (leadsNowhere && IsNamedAsAudio (entry.path ())))
                files.push_back (entry.path ());
            else if (!entry.is_directory (ignored))
                continue;
            else if (!options.recursive)
                leavesFoldersOut = true;
            else if (entry.is_symlink (ignored)) // may lead back here
                Warn ("the link to a folder is not followed: \"" + entry.path ().string () + "\"");
            else
                CheckFolder (entry.path ());
        }
        std::ranges::sort (files);
        for (const auto& file : files)
            Add (file, file.lexically_relative (folder));
    }

private:
    /// A folder that can't be looked into would be passed over in silence, with all that is below it.
    void CheckFolder (const fs::path& folder)
    {
        std::error_code error;
        fs::directory_iterator (folder, error);
        if (error)
            items.push_back ({ folder, {}, 0, "the folder cannot be read: " + error.message () });
    }

    const Options& options; // not owned: the caller's
};

void FindFaults (std::vector<BatchItem>& items)
{
    std::set<fs::path> inputs;
    for (const auto& item : items)
        inputs.insert (Place (item.input));
    std::set<fs::path> results;
    for (const bool namedAsAudio : { true, false }) // a cover beside an episode does not take its place
        for (auto& item : items)
        {
            if (!item.fault.empty () || IsNamedAsAudio (item.input) != namedAsAudio)
                continue;
            const auto place = Place (item.output);
            const bool isInput = inputs.contains (place);
            item.isTaken = !isInput && !results.insert (place).second;
            if (item.isTaken || isInput)
                item.fault = "\"" + item.output.string () + "\" is an input or the result of another file";
        }
}

} // namespace

bool IsNamedAsAudio (const fs::path& file)
{
    constexpr auto kAudio =
        std::to_array<std::string_view> ({ ".wav", ".wave", ".bwf", ".rf64", ".w64",  ".flac", ".aiff", ".aif", ".aifc",
                                           ".au",  ".caf",  ".ogg", ".oga",  ".opus", ".mp3",  ".mp2",  ".m4a", ".m4b",
                                           ".aac", ".wma",  ".wv",  ".ape",  ".amr",  ".mka",  ".dsf",  ".dff" });
    // Beside each file macOS keeps attributes of it under such a name, on file systems that have none.
    return !file.filename ().string ().starts_with ("._") &&
           std::ranges::find (kAudio, Lowered (file.extension ().string ())) != kAudio.end ();
}

std::vector<BatchItem> BatchItems (const Options& options)
{
    Collector collector (options);
    for (const auto& given : options.batch)
    {
        std::error_code ignored;
        if (!fs::is_directory (given, ignored))
            collector.Add (given, given.filename ());
        else if (options.recursive)
            collector.AddFolder<fs::recursive_directory_iterator> (given);
        else
            collector.AddFolder<fs::directory_iterator> (given);
    }
    FindFaults (collector.items);
    if (collector.leavesFoldersOut)
        Warn ("folders in the folder are left out; --recursive takes what is in them");
    return collector.items;
}

} // namespace tessaly::render
