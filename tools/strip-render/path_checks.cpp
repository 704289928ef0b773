#include "path_checks.h"

#include "collection_commands.h"
#include "input_file.h"
#include "render_error.h"

#include <string>
#include <vector>

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kInput = "/dev/stdin";
constexpr const char* kOutput = "/dev/stdout";

struct NamedPath
{
    std::string name; // how the user has called it
    fs::path path;
};

/// One file by device and inode, links followed; of files that are not there yet, one place. Streams are the same where
/// both come from or go into one ordinary file.
bool IsSame (const fs::path& a, const fs::path& b)
{
    std::error_code error;
    if ((IsStream (a) || IsStream (b)) && !(fs::is_regular_file (a, error) && fs::is_regular_file (b, error)))
        return false;
    if (fs::exists (a, error) && fs::exists (b, error))
        return fs::equivalent (a, b, error);
    const auto place = [&error] (const fs::path& any) { return fs::weakly_canonical (fs::absolute (any), error); };
    return place (a) == place (b);
}

/// @param stream  what "-" stands for
void Add (std::vector<NamedPath>& paths, const char* name, const std::optional<fs::path>& path, const char* stream)
{
    if (path && !path->empty ())
        paths.push_back ({ name, *path == "-" ? stream : *path });
}

std::vector<NamedPath> PathsRead (const Options& options)
{
    std::vector<NamedPath> paths;
    Add (paths, "IN", options.input, kInput);
    Add (paths, "--state", options.state, kInput);
    Add (paths, "--automate", options.automation, kInput);
    if (options.keyPoints)
    {
        Add (paths, "--keypoints", fs::path (*options.keyPoints), kInput);
        for (const auto& file : keypoints::FilesNamed (*options.keyPoints))
            paths.push_back ({ "--keypoints", file });
    }
    return paths;
}

std::vector<NamedPath> PathsWritten (const Options& options)
{
    std::vector<NamedPath> paths;
    Add (paths, "OUT", options.output, kOutput);
    Add (paths, "--meters", options.meters, kOutput);
    Add (paths, "--plot", options.plot, kOutput);
    Add (paths, "--save-state", options.saveState, kOutput);
    return paths;
}

} // namespace

void CheckPaths (const Options& options)
{
    auto taken = PathsRead (options);
    for (const auto& written : PathsWritten (options))
    {
        const bool isStream = IsStream (written.path);
        for (const auto& other : taken)
            if (IsSame (written.path, other.path))
                throw RenderError (written.name + " would write over \"" + other.path.string () + "\", which is " +
                                   other.name);
        std::error_code ignored;
        if (!isStream && !options.force && fs::is_regular_file (written.path, ignored))
            throw RenderError ("\"" + written.path.string () + "\" is there already; --force replaces it");
        taken.push_back (written);
    }
}

} // namespace tessaly::render
