#pragma once

#include "pluginterfaces/base/funknown.h"
#include <cstdint>
#include <string_view>

namespace tessaly
{

/// Computes a VST 3 class id from strings, as 32 hexadecimal digits: "VSE" (controller) or "VST" (processor) in six,
/// the four-character id in eight, the first nine bytes of the lower-cased name in eighteen (00 beyond its end).
/// @param name  8-bit text; only ASCII letters are lower-cased
Steinberg::FUID MakeClassId (std::uint32_t fourCharacterId, std::string_view name, bool isController);

/// The ids of the two classes of this plug-in.
Steinberg::FUID ProcessorClassId ();
Steinberg::FUID ControllerClassId ();

} // namespace tessaly
