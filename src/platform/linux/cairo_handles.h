#pragma once

#include <memory>

using cairo_t = struct _cairo;
using cairo_surface_t = struct _cairo_surface;
using cairo_pattern_t = struct _cairo_pattern;

namespace tessaly
{

/// Gives Cairo's objects back. Declared without Cairo's header, so that who includes a canvas doesn't need it.
struct CairoRelease
{
    void operator() (cairo_t* context) const;
    void operator() (cairo_surface_t* surface) const;
    void operator() (cairo_pattern_t* pattern) const;
};

using CairoContext = std::unique_ptr<cairo_t, CairoRelease>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoRelease>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, CairoRelease>;

} // namespace tessaly
