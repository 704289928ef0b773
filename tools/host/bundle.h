#pragma once

#include "public.sdk/source/vst/hosting/module.h"

#include <filesystem>
#include <vector>

namespace tessaly::host
{

/// A loaded VST 3 bundle. Copies share the one loaded library; it is unloaded with the last of them, so whoever keeps
/// an object of the bundle keeps a copy too. Main thread.
class Bundle
{
public:
    /// Loads the library and asks it for its factory.
    /// @throws HostError when there is no such folder, it is no bundle for this machine, or the library does not load
    explicit Bundle (const std::filesystem::path& folder);

    const std::filesystem::path& Path () const { return path; }

    /// All classes in the factory's order: processors, controllers and whatever else it offers.
    VST3::Hosting::PluginFactory::ClassInfos Classes () const;

    /// @throws HostError when the bundle holds no audio effect
    VST3::Hosting::ClassInfo FirstAudioEffect () const;

    const VST3::Hosting::PluginFactory& Factory () const { return loaded->getFactory (); }

private:
    std::filesystem::path path;
    VST3::Hosting::Module::Ptr loaded;
};

} // namespace tessaly::host
