#include "bundle.h"

#include "host_error.h"

#include "pluginterfaces/vst/ivstaudioprocessor.h"

#include <algorithm>

namespace tessaly::host
{

namespace fs = std::filesystem;

namespace
{

/// The SDK derives the library's name from the folder's, which a trailing separator would hide.
fs::path WithoutTrailingSeparator (const fs::path& folder)
{
    const fs::path whole = fs::absolute (folder).lexically_normal ();
    return whole.has_filename () ? whole : whole.parent_path ();
}

/// The SDK's reasons run over several lines.
std::string OnOneLine (std::string text)
{
    std::replace (text.begin (), text.end (), '\n', ' ');
    return text;
}

} // namespace

Bundle::Bundle (const fs::path& folder)
    : path (WithoutTrailingSeparator (folder))
{
    std::error_code ignored;
    if (!fs::exists (path, ignored))
        throw HostError ("no plug-in bundle at \"" + path.string () + "\"");
    if (!fs::is_directory (path / "Contents", ignored))
        throw HostError ("\"" + path.string () + "\" is not a VST 3 bundle (it has no folder \"Contents\")");

    std::string reason;
    loaded = VST3::Hosting::Module::create (path.string (), reason);
    if (!loaded)
        throw HostError ("the plug-in \"" + path.string () + "\" does not load: " + OnOneLine (reason));
}

VST3::Hosting::PluginFactory::ClassInfos Bundle::Classes () const
{
    return Factory ().classInfos ();
}

VST3::Hosting::ClassInfo Bundle::FirstAudioEffect () const
{
    const auto classes = Classes ();
    const auto effect = std::find_if (classes.begin (), classes.end (),
                                      [] (const auto& entry) { return entry.category () == kVstAudioEffectClass; });
    if (effect == classes.end ())
        throw HostError ("the bundle \"" + path.string () + "\" holds no audio effect");
    return *effect;
}

} // namespace tessaly::host
