#pragma once

namespace tessaly::keypoints
{

/// Does what a command line asks for. Results go to standard output.
/// @return the exit status: 0; 1 where a check found something or there is nothing to list; 2 for a mistake in the line
/// @throws SetError, HostError; no file is then left behind or changed
int RunCommandLine (int argc, const char* const* argv);

} // namespace tessaly::keypoints
