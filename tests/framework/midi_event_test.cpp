#include "midi_event.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("ZMidiEvent: held notes stand from oldest to newest, a repeated one moves to the end")
{
    ZMidiEvent midi;
    midi.Event (0x90, 60, 100, 0);
    midi.Event (0x93, 64, 90, 1);
    CHECK (midi.NewestNote () == 64);
    midi.Event (0x90, 60, 80, 2);
    CHECK (midi.HeldCount () == 2);
    CHECK (midi.HeldNote (0) == 64);
    CHECK (midi.NewestNote () == 60);
    CHECK (midi.Velocity (60) == 80);
    midi.Event (0x80, 60, 0, 3);
    CHECK (midi.NewestNote () == 64);
    midi.Event (0x90, 64, 0, 4); // no velocity: a note off
    CHECK (midi.HeldCount () == 0);
    CHECK (midi.HeldNote (0) == -1);
}

TEST_CASE ("ZMidiEvent: controller 123 ends all notes, pitch bend has 14 bits, other bytes change nothing")
{
    ZMidiEvent midi;
    midi.Event (0x90, 60, 100, 0);
    midi.Event (0x90, 64, 100, 0);
    midi.Event (0xB0, 123, 17, 0);
    CHECK (midi.HeldCount () == 0);
    midi.Event (0xE0, 0, 64, 0);
    CHECK (midi.PitchBend () == 8192);

    midi.Event (0x90, 128, 100, 0); // no MIDI data
    midi.Event (0xB0, 255, 100, 0);
    CHECK (midi.HeldCount () == 0);
    for (int note = 0; note < 128; ++note)
        midi.Event (0x90, static_cast<std::uint8_t> (note), 1, 0);
    CHECK (midi.HeldCount () == 127);
}

TEST_CASE ("ZMidiEvent: what comes during a block is seen from the next one on, each at its time")
{
    ZOldMidiEvent midi;
    midi.Event (0x90, 60, 100, 10);
    midi.Event (0x90, 64, 90, 20);
    midi.Event (0xB0, 7, 33, 15);
    CHECK (midi.HeldCountAt (30) == 0);

    midi.BeginBlock ();
    CHECK (midi.HeldCountAtTime (9) == 0);
    CHECK (midi.HeldCountAtTime (10) == 1);
    CHECK (midi.NewestNoteAt (25) == 64);
    CHECK (midi.Notes ().Count () == 2);
    CHECK (midi.Notes ().NextTime (10) == 20);
    CHECK (midi.Notes ().NextTime (20) == -1);
    midi.SetController (7);
    CHECK (midi.ControllerThen () == 0);
    midi.HeldCountAtTime (15);
    CHECK (midi.ControllerThen () == 33);
    midi.EndBlock ();

    midi.BeginBlock (); // nothing new: the state at the end goes on
    CHECK (midi.HeldCountAt (0) == 2);
    CHECK (midi.Notes ().Count () == 0);
}
