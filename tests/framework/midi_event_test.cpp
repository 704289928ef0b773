#include "midi_event.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("ZMidiEvent: held notes stand from oldest to newest, a repeated one moves to the end")
{
    ZMidiEvent midi;
    midi.Event (0x90, 60, 100, 0);
    midi.Event (0x93, 64, 90, 0);
    midi.Event (0x90, 60, 80, 0);
    CHECK (midi.HeldNote (0) == 64);
    CHECK (midi.Velocity (60) == 80);
    midi.Event (0x80, 60, 0, 0);
    CHECK (midi.NewestNote () == 64);
    midi.Event (0x90, 64, 0, 0); // no velocity: a note off
    CHECK (midi.NewestNote () == -1);

    for (int note = 255; note >= 0; --note) // above 127 it is no MIDI data
        midi.Event (0x90, static_cast<std::uint8_t> (note), 1, 0);
    CHECK (midi.HeldNote (0) == 127);
    CHECK (midi.HeldCount () == 127);
    midi.Event (0xB0, 123, 17, 0); // all notes off
    CHECK (midi.HeldCount () == 0);
    midi.Event (0xE0, 0, 64, 0);
    CHECK (midi.PitchBend () == 8192);
}

TEST_CASE ("ZMidiEvent: what comes during a block is seen from the next one on, each at its time")
{
    ZMidiEvent midi;
    midi.Event (0x90, 60, 100, 10);
    midi.Event (0xB0, 7, 33, 15);
    midi.Event (0x90, 64, 90, 20);
    CHECK (midi.HeldCountAt (30) == 0);

    midi.BeginBlock ();
    CHECK (midi.HeldCountAt (9) == 0);
    CHECK (midi.HeldCountAt (10) == 1);
    CHECK (midi.NewestNoteAt (25) == 64);
    CHECK (midi.Notes ().NextTime (10) == 20);
    CHECK (midi.Notes ().NextTime (20) == -1);
    CHECK (midi.ControllerAt (7, 14) == 0);
    CHECK (midi.ControllerAt (7, 15) == 33);
    midi.EndBlock ();

    midi.BeginBlock (); // nothing new: the state at the end goes on
    CHECK (midi.HeldCountAt (0) == 2);
}
