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
    for (const int number : { SIGINT, SIGTERM, SIGHUP })
    {
        // A program started in the background or by nohup keeps ignoring what its starter ignores.
        if (std::signal (number, NoteSignal) == SIG_IGN)
            std::signal (number, SIG_IGN);
    }
    std::signal (SIGXFSZ, SIG_IGN);
}

void ThrowIfInterrupted ()
{
    if (signalReceived != 0)
        throw Interrupted{ signalReceived };
}

} // namespace tessaly::render
