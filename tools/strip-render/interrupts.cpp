#include "interrupts.h"

#include "running_process.h"

#include <csignal>

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
    tools::NoteInterrupts (NoteSignal);
}

void ThrowIfInterrupted ()
{
    if (signalReceived != 0)
        throw Interrupted{ signalReceived };
}

} // namespace tessaly::render
