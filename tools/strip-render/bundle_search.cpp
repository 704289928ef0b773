#include "bundle_search.h"

#include "running_process.h"
#include "render_error.h"

namespace tessaly::render
{

namespace fs = std::filesystem;

std::vector<fs::path> BundleCandidates (const fs::path& programFolder)
{
    const fs::path name = STRIP_RENDER_BUNDLE;
    const fs::path above = programFolder.parent_path ();
    std::vector<fs::path> candidates{ above / "vst3" / name, above / "lib" / "vst3" / name, programFolder / name };
    for (const fs::path& folder : tools::PluginFolders ())
        candidates.push_back (folder / name);
    return candidates;
}

fs::path FindBundle ()
{
    std::error_code ignored;
    std::string looked;
    for (const fs::path& candidate : BundleCandidates (tools::ProgramPath ().parent_path ()))
    {
        if (fs::is_directory (candidate, ignored))
            return candidate;
        looked += "\n  " + candidate.string ();
    }
    throw RenderError ("the plug-in's bundle is not found; say --plugin PATH, or put it at one of" + looked);
}

} // namespace tessaly::render
