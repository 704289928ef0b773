#pragma once

#include "options.h"

namespace tessaly::render
{

/// Does what the command line asks for: prints the parameters, or renders and prints the summary.
/// @return the exit status
/// @throws RenderError, HostError or Interrupted; no file is then left behind or changed
int RunCommand (const Options& options);

} // namespace tessaly::render
