#pragma once

#include "named_host.h"
#include "plugin_instance.h"

namespace tessaly::test
{

/// One instance of the built bundle, for tests that ask its controller about parameters.
struct LoadedStrip
{
    host::NamedHost host{ "host_tests" };
    host::PluginInstance instance{ host::Bundle (TESSALY_BUNDLE), host };
    host::ParameterAccess parameters = instance.Parameters ();
};

} // namespace tessaly::test
