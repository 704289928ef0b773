#pragma once

#include "pluginterfaces/base/funknown.h"

namespace tessaly
{

/// The host context that the host gave to the class factory, null before and without one. Not owned: the factory holds
/// a reference. Some hosts offer their run loop only there. Host's main thread.
Steinberg::FUnknown* FactoryHostContext ();

} // namespace tessaly
