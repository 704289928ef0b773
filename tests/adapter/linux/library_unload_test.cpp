#include "loose_halves.h"
#include "temp_folder.h"
#include <dlfcn.h>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("Odd hosts: the library goes when asked, comes back, and stands objects that outlive its exit call")
{
    // A copy: the other tests keep the built one loaded.
    const TempFolder folder;
    const auto path = folder / "Tessaly Bench [m].vst3";
    std::filesystem::copy (TESSALY_BUNDLE, path, std::filesystem::copy_options::recursive);
    std::filesystem::path library;
    for (const auto& entry : std::filesystem::recursive_directory_iterator (path))
        if (entry.path ().extension () == ".so")
            library = entry.path ();
    const auto isLoaded = [&library]
    {
        void* handle = dlopen (library.c_str (), RTLD_LAZY | RTLD_NOLOAD);
        return handle != nullptr && dlclose (handle) == 0;
    };

    for (int round = 0; round < 2; ++round)
    {
        {
            host::NamedHost context ("loads twice");
            host::PluginInstance first (host::Bundle (path), context);
            host::PluginInstance second (host::Bundle (path), context);
            first.Parameters ().SetNormalized (kDrive, 0.25);
            CHECK (second.Parameters ().Normalized (kDrive) == 0.5); // two instances of one library share nothing
            CHECK (isLoaded ());
            host::Bundle (path).Factory ().setHostContext (nullptr);
        }
        CHECK_FALSE (isLoaded ());

        void* handle = dlopen (library.c_str (), RTLD_LAZY);
        REQUIRE (handle != nullptr);
        CHECK (reinterpret_cast<bool (*) (void*)> (dlsym (handle, "ModuleEntry")) (handle));
        {
            const auto getFactory = reinterpret_cast<IPluginFactory* (*)()> (dlsym (handle, "GetPluginFactory"));
            const VST3::Hosting::PluginFactory factory (owned (getFactory ()));
            LooseHalves halves (factory, factory.classInfos (), "Ardour"); // which has a thread of the library's
            halves.Connect ();
            halves.SetUp ();
            halves.On ();
            CHECK (reinterpret_cast<bool (*) ()> (dlsym (handle, "ModuleExit")) ());
            halves.Play ();
            halves.EndController ();
            halves.End ();
        }
        dlclose (handle);
        CHECK_FALSE (isLoaded ());
    }
}
