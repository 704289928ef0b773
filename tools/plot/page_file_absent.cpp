// In the place of page_file.cpp where Cairo is not there.

#include "page_file.h"

namespace tessaly::plot
{

void RequirePlots ()
{
    throw PlotError ("this program is built without Cairo, which draws plots");
}

PageFile::PageFile (const std::filesystem::path& file, host::Existing existing)
    : pending (file, existing)
    , isSvg (IsSvg (file))
{
    RequirePlots ();
}

void PageFile::Commit (const Page& /*page*/)
{
    static_cast<void> (isSvg);
    RequirePlots ();
}

} // namespace tessaly::plot
