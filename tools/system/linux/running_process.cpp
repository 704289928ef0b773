#include "running_process.h"

#include <csignal>
#include <cstdlib>
#include <initializer_list>
#include <unistd.h>

namespace tessaly::tools
{

namespace fs = std::filesystem;

std::uint32_t ProcessNumber ()
{
    return static_cast<std::uint32_t> (getpid ());
}

fs::path ProgramPath ()
{
    std::error_code ignored;
    return fs::read_symlink ("/proc/self/exe", ignored);
}

bool IsErrorTerminal ()
{
    return isatty (STDERR_FILENO) != 0;
}

std::vector<fs::path> PluginFolders ()
{
    std::vector<fs::path> folders;
    if (const char* home = std::getenv ("HOME"); home != nullptr && *home != '\0')
        folders.push_back (fs::path (home) / ".vst3");
    folders.emplace_back ("/usr/local/lib/vst3");
    folders.emplace_back ("/usr/lib/vst3");
    return folders;
}

void NoteInterrupts (void (*note) (int))
{
    struct sigaction noted
    {
    };
    noted.sa_handler = note;
    noted.sa_flags = static_cast<int> (SA_RESETHAND); // no SA_RESTART: waiting for input ends; a second signal kills
    for (const int number : { SIGINT, SIGTERM, SIGHUP })
    {
        // A program started in the background or by nohup keeps ignoring what its starter ignores.
        struct sigaction previous
        {
        };
        sigaction (number, &noted, &previous);
        if (previous.sa_handler == SIG_IGN)
            sigaction (number, &previous, nullptr);
    }
    std::signal (SIGXFSZ, SIG_IGN);
}

} // namespace tessaly::tools
