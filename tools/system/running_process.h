#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tessaly::tools
{

std::uint32_t ProcessNumber ();       ///< tells this process from all others that run
std::filesystem::path ProgramPath (); ///< of the running program
bool IsErrorTerminal ();              ///< whether standard error goes to somebody's screen
std::vector<std::filesystem::path>
PluginFolders (); ///< where this system's VST 3 bundles are installed, the user's first

/// From here on the user's or the system's wish to stop the program calls `note`, with the signal's number, once;
/// another one ends it. A file that may not grow is an error of writing.
void NoteInterrupts (void (*note) (int));

} // namespace tessaly::tools
