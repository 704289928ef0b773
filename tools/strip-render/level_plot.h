#pragma once

#include "level_trace.h"
#include "page_file.h"
#include "summary.h"

namespace tessaly::render
{

/// A picture of a render over its time: levels of input and output, and gain reduction.
class LevelPlot
{
public:
    /// @param file  ends in .svg or .png
    /// @throws plot::PlotError, HostError when there are no plots in this build, or the file cannot be made
    LevelPlot (const std::filesystem::path& file, host::Existing existing);

    /// Draws it and puts it in its place. @throws plot::PlotError, HostError
    void Commit (const LevelTrace& trace, const Summary& summary);

private:
    plot::PageFile picture;
};

} // namespace tessaly::render
