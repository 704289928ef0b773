#include "interrupts.h"

#include <csignal>
#include <initializer_list>

namespace tessaly::render
{

namespace
{

volatile std::sig_atomic_t signalReceived = 0;

extern "C" void NoteSignal (int number)
{
    signalReceived = number;
}

} // namespace

void CatchInterrupts ()
{
    struct sigaction noted
    {
    };
    noted.sa_handler = NoteSignal;
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

void ThrowIfInterrupted ()
{
    if (signalReceived != 0)
        throw Interrupted{ signalReceived };
}

} // namespace tessaly::render
