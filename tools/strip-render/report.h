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

/// The same for programs.
void PrintParametersAsJson (std::ostream& out, const host::ParameterAccess& parameters);

/// What there is to tell of a render.
struct Summary
{
    const std::filesystem::path& input;
    const std::filesystem::path& output;
    const AudioReader& reader;
    const OutputFormat& format;
    const RenderResult& result;
};

/// Prints what was rendered, where it is, how loud it was and is, and the largest gain reduction; as JSON for programs.
void PrintSummary (std::ostream& out, const Summary& summary, bool asJson);

} // namespace tessaly::render
