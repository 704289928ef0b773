#include "page_file.h"

#include "diagram_drawing.h"

#include <cairo-svg.h>
#include <memory>

namespace tessaly::plot
{

namespace
{

constexpr int kPixelsAUnit = 2; // of a PNG

struct Destroy
{
    void operator() (cairo_surface_t* surface) const { cairo_surface_destroy (surface); }
    void operator() (cairo_t* canvas) const { cairo_destroy (canvas); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;
using Canvas = std::unique_ptr<cairo_t, Destroy>;

void Require (cairo_status_t status)
{
    if (status != CAIRO_STATUS_SUCCESS)
        throw PlotError (std::string ("the plot cannot be drawn: ") + cairo_status_to_string (status));
}

cairo_status_t DrawOn (cairo_surface_t* surface, const Page& page)
{
    const Canvas canvas (cairo_create (surface));
    DrawPage (canvas.get (), page);
    return cairo_status (canvas.get ());
}

void WriteSvg (const std::string& file, const Page& page)
{
    const Surface surface (cairo_svg_surface_create (file.c_str (), page.width, page.height));
    cairo_svg_surface_set_document_unit (surface.get (), CAIRO_SVG_UNIT_PX);
    Require (DrawOn (surface.get (), page));
    cairo_surface_finish (surface.get ());
    Require (cairo_surface_status (surface.get ()));
}

void WritePng (const std::string& file, const Page& page)
{
    const Surface surface (cairo_image_surface_create (CAIRO_FORMAT_RGB24, static_cast<int> (page.width) * kPixelsAUnit,
                                                       static_cast<int> (page.height) * kPixelsAUnit));
    cairo_surface_set_device_scale (surface.get (), kPixelsAUnit, kPixelsAUnit);
    Require (DrawOn (surface.get (), page));
    Require (cairo_surface_write_to_png (surface.get (), file.c_str ()));
}

} // namespace

void RequirePlots () {}

PageFile::PageFile (const std::filesystem::path& file, host::Existing existing)
    : pending (file, existing)
    , isSvg (IsSvg (file))
{
    if (!IsPicture (file))
        throw PlotError ("\"" + file.string () + "\" ends neither in .svg nor in .png");
}

void PageFile::Commit (const Page& page)
{
    if (isSvg)
        WriteSvg (pending.WorkingPath ().string (), page);
    else
        WritePng (pending.WorkingPath ().string (), page);
    pending.Commit ();
}

} // namespace tessaly::plot
