#pragma once

#include <csignal>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessaly::test
{

/// An X server without a screen (Xvfb) for this process, on a display number that it finds free itself, so that tests
/// can run at once. $DISPLAY names it from here on. It ends with the process, however that ends.
class VirtualScreen
{
public:
    VirtualScreen ()
    {
        int ends[2];
        if (pipe (ends) != 0)
            throw std::runtime_error ("no pipe for the X server");
        id = fork ();
        if (id == 0)
            Run (ends[1]);
        close (ends[1]);
        // The server writes the number, then a line's end on its own.
        std::string number;
        for (char letter = 0; read (ends[0], &letter, 1) == 1 && letter != '\n';)
            number += letter;
        close (ends[0]);
        if (number.empty ())
            throw std::runtime_error ("Xvfb does not start");
        setenv ("DISPLAY", (":" + number).c_str (), 1);
    }
    ~VirtualScreen ()
    {
        kill (id, SIGTERM);
        waitpid (id, nullptr, 0);
    }
    VirtualScreen (const VirtualScreen&) = delete;
    VirtualScreen& operator= (const VirtualScreen&) = delete;

    pid_t Id () const { return id; }

private:
    [[noreturn]] static void Run (int tellsNumber)
    {
        prctl (PR_SET_PDEATHSIG, SIGTERM);
        const std::string fd = std::to_string (tellsNumber);
        execlp ("Xvfb", "Xvfb", "-displayfd", fd.c_str (), "-screen", "0", "2400x1200x24", "-nolisten", "tcp",
                "-noreset", nullptr);
        _exit (127);
    }

    pid_t id;
};

} // namespace tessaly::test
