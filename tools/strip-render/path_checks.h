#pragma once

#include "options.h"

namespace tessaly::render
{

/// What is written must not take the place of a file that is read, whatever names and links lead to it, nor of another
/// file that is written; and of any file that is there only where the user has said so.
/// @throws RenderError that names option and file
void CheckPaths (const Options& options);

} // namespace tessaly::render
