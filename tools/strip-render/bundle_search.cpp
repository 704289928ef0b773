#include "bundle_search.h"

#include "render_error.h"

#include <cstdlib>

namespace tessaly::render
{

namespace fs = std::filesystem;

std::vector<fs::path> BundleCandidates (const fs::path& programFolder)
{
    const fs::path name = STRIP_RENDER_BUNDLE;
    const fs::path above = programFolder.parent_path ();
    std::vector<fs::path> candidates{ above / "vst3" / name, above / "lib" / "vst3" / name, programFolder / name };
    if (const char* home = std::getenv ("HOME"); home && *home)
        candidates.push_back (fs::path (home) / ".vst3" / name);
    candidates.push_back (fs::path ("/usr/local/lib/vst3") / name);
    candidates.push_back (fs::path ("/usr/lib/vst3") / name);
    return candidates;
}

fs::path FindBundle ()
{
    std::error_code ignored;
    const fs::path program = fs::read_symlink ("/proc/self/exe", ignored);
    std::string looked;
    for (const fs::path& candidate : BundleCandidates (program.parent_path ()))
    {
        if (fs::is_directory (candidate, ignored))
            return candidate;
        looked += "\n  " + candidate.string ();
    }
    throw RenderError ("the plug-in's bundle is not found; say --plugin PATH, or put it at one of" + looked);
}

} // namespace tessaly::render
