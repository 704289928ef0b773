#pragma once

#include "audio_file.h"
#include "output_format.h"
#include "parameter_access.h"
#include "renderer.h"

#include <filesystem>
#include <iosfwd>

namespace tessaly::render
{

/// Prints every parameter: name, range, unit, default and present text; meters too, which cannot be set.
void PrintParameters (std::ostream& out, const host::ParameterAccess& parameters);

/// Prints what was rendered, where it is, how loud it was and is, and the largest gain reduction.
void PrintSummary (std::ostream& out, const std::filesystem::path& input, const AudioReader& reader,
                   const std::filesystem::path& output, const OutputFormat& format, const RenderResult& result);

} // namespace tessaly::render
