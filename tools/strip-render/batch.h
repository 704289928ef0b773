#pragma once

#include "file_render.h"
#include "options.h"

namespace tessaly::render
{

/// Renders many files, options.jobs of them at once, with one bar of progress. Files that hold no audio are left out
/// and named; one that fails does not stop the rest. Tells at the end how many there were and which failed.
/// @return the exit status: 0, or 1 when a file has failed
/// @throws Interrupted; the results that are there by then are whole
int RenderBatch (RenderSession& session, const Options& options);

} // namespace tessaly::render
