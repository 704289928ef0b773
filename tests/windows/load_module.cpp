// Loads the module as a host does, asks it for its classes, unloads it, and all that again; ends with 0 when the module
// has come and gone each time.
#include "pluginterfaces/base/ipluginbase.h"
#include <cstdio>
#include <windows.h>

namespace
{

using Entry = bool (*) ();
using MakeFactory = Steinberg::IPluginFactory*(PLUGIN_API*)();

template <typename Function>
Function Find (HMODULE module, const char* name)
{
    return reinterpret_cast<Function> (reinterpret_cast<void*> (GetProcAddress (module, name)));
}

bool Use (HMODULE module)
{
    const auto init = Find<Entry> (module, "InitDll");
    const auto make = Find<MakeFactory> (module, "GetPluginFactory");
    const auto exit = Find<Entry> (module, "ExitDll");
    if (init == nullptr || make == nullptr || exit == nullptr || !init ())
        return false;
    auto* const factory = make ();
    auto* const again = make ();
    const bool isOne = factory != nullptr && factory == again && factory->countClasses () == 2;
    again->release ();
    factory->release ();
    return exit () && isOne;
}

} // namespace

int main (int argc, char** argv)
{
    constexpr int kLoads = 20;
    for (int i = 0; argc == 2 && i < kLoads; ++i)
    {
        const HMODULE module = LoadLibraryA (argv[1]);
        const bool used = module != nullptr && Use (module);
        const bool unloaded = module != nullptr && FreeLibrary (module) != 0 && GetModuleHandleA (argv[1]) == nullptr;
        if (used && unloaded)
            continue;
        std::printf ("load %d: used %d, unloaded %d\n", i, used, unloaded);
        return 1;
    }
    return argc == 2 ? 0 : 2;
}
