#include "cairo_handles.h"

#include <cairo.h>

namespace tessaly
{

void CairoRelease::operator() (cairo_t* context) const
{
    cairo_destroy (context);
}

void CairoRelease::operator() (cairo_surface_t* surface) const
{
    cairo_surface_destroy (surface);
}

void CairoRelease::operator() (cairo_pattern_t* pattern) const
{
    cairo_pattern_destroy (pattern);
}

} // namespace tessaly
