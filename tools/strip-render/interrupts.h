#pragma once

namespace tessaly::render
{

/// Thrown where the user or the system has asked the program to stop, so that all that is half done is cleared away.
struct Interrupted
{
    int signalNumber;
};

/// Takes the signals that ask for an end (SIGINT, SIGTERM, SIGHUP) as a wish to stop, instead of an end on the spot; and a file that may not grow as
/// an error of writing. Call once, before there is anything to clear away.
void CatchInterrupts ();

/// @throws Interrupted when one of the signals has come
void ThrowIfInterrupted ();

} // namespace tessaly::render
