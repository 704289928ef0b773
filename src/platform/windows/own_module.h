#pragma once

#include "windows_api.h"

namespace tessaly
{

/// The module that this code is linked into: the plug-in's, or a program. Not owned.
HMODULE OwnModule ();

} // namespace tessaly
