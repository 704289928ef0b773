#pragma once

#include "options.h"
#include "render_session.h"
#include "summary.h"

namespace tessaly::render
{

/// Renders options.input into options.output, or only finds out what would be written (options.dryRun). Several threads
/// may do so at once, each with options of its own. Warnings go to standard error.
/// @throws RenderError, HostError, Interrupted; nothing is then written
Summary RenderFile (RenderSession& session, const Options& options);

} // namespace tessaly::render
