#pragma once

#include "temp_folder.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tessaly::test
{

/// What a program that has ended leaves to look at.
struct ProgramRun
{
    int exitStatus; ///< or minus the number of the signal that ended it
    std::string out;
    std::string err;
};

using Words = std::vector<std::string>;

inline Words With (Words words, const Words& more)
{
    words.insert (words.end (), more.begin (), more.end ());
    return words;
}

inline ProgramRun RunProgram (const std::string& program, Words words)
{
    words.insert (words.begin (), program);
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back (word.data ());
    pointers.push_back (nullptr);

    const TempFolder folder;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init (&actions);
    constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen (&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen (&actions, STDOUT_FILENO, (folder / "out").c_str (), kFlags, 0600);
    posix_spawn_file_actions_addopen (&actions, STDERR_FILENO, (folder / "err").c_str (), kFlags, 0600);
    pid_t id = 0;
    const int failed = posix_spawn (&id, program.c_str (), &actions, nullptr, pointers.data (), environ);
    posix_spawn_file_actions_destroy (&actions);
    int status = 0;
    if (failed || waitpid (id, &status, 0) != id)
        throw std::runtime_error ("cannot run " + program);
    return { WIFEXITED (status) ? WEXITSTATUS (status) : -WTERMSIG (status), ReadFile (folder / "out"),
             ReadFile (folder / "err") };
}

} // namespace tessaly::test
