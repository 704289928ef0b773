#pragma once

#include "page.h"
#include "pending_file.h"
#include "text.h"

#include <filesystem>
#include <stdexcept>

namespace tessaly::plot
{

class PlotError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// @throws PlotError where this build draws no plots
void RequirePlots ();

inline bool IsSvg (const std::filesystem::path& file)
{
    return Lowered (file.extension ().string ()) == ".svg";
}

/// Whether a name tells what kind of picture: it ends in .svg or .png.
inline bool IsPicture (const std::filesystem::path& file)
{
    return IsSvg (file) || Lowered (file.extension ().string ()) == ".png";
}

/// A picture in the making, which appears whole or not at all: SVG, or PNG of two pixels a unit, by the name's end.
class PageFile
{
public:
    /// @throws PlotError where this build draws no plots or the name ends otherwise; HostError when the file cannot be
    /// made or may not
    PageFile (const std::filesystem::path& file, host::Existing existing);

    /// Draws the page and puts the file in its place. Two of the same page are the same byte for byte on one machine.
    /// @throws PlotError, HostError
    void Commit (const Page& page);

private:
    host::PendingFile pending;
    bool isSvg;
};

} // namespace tessaly::plot
