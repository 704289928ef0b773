#pragma once

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/smartpointer.h"

namespace tessaly
{

/// The host context that the host gave to the class factory, null before and without one. Some hosts offer their run
/// loop only there. Any thread.
Steinberg::IPtr<Steinberg::FUnknown> FactoryHostContext ();

} // namespace tessaly
