#pragma once

#include "page.h"

#include <cairo.h>

namespace tessaly::plot
{

/// Draws titles and diagrams, on white.
void DrawPage (cairo_t* canvas, const Page& page);

} // namespace tessaly::plot
