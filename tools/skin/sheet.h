#pragma once

#include "cairo_handles.h"
#include <cstdint>

namespace tessaly::skin
{

/// A contact sheet to judge the skin by: the panel with controls in their places, then the same with a section off, and
/// held, and frames of every control. Each pixel of an image is `zoom` pixels of it.
CairoSurface DrawSheet (std::int32_t density, std::int32_t zoom);

} // namespace tessaly::skin
