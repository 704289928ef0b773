#pragma once

#include "midi_buffer_info.h"
#include <array>
#include <cstdint>

namespace tessaly
{

inline constexpr std::uint8_t kNoNote = 255; // a free place in KVP_MidiNote_Data::order

/// The notes held at one moment.
struct KVP_MidiNote_Data
{
    KVP_MidiNote_Data () { order.fill (kNoNote); }

    std::array<std::uint8_t, 128> velocity{}; // of each note, 0 when off
    std::array<std::uint8_t, 128> order;      // held notes from oldest to newest, then kNoNote
    std::int32_t count = 0;                   // notes held, 0 to 127
};

/// The controllers' values at one moment.
struct KVP_MidiControlChange_Data
{
    std::array<std::uint8_t, 128> value{};
};

/// Held notes over time. Note numbers above 127 are no MIDI and are ignored.
class ZMidiNoteInfo : public ZTemplateMidiBufferInfo<KVP_MidiNote_Data, 256>
{
public:
    void NoteOn (std::uint8_t note, std::uint8_t velocity, std::int32_t time); ///< velocity 0: note off
    void NoteOff (std::uint8_t note, std::int32_t time);
    void AllOff (std::int32_t time);
};

/// Controller values over time. Controller numbers above 127 are ignored.
class ZMidiControlChangeInfo : public ZTemplateMidiBufferInfo<KVP_MidiControlChange_Data, 256>
{
public:
    void WriteController (std::uint8_t controller, std::uint8_t value, std::int32_t time);
};

/// Pitch bend over time: 14 bits, 8192 in the middle.
class ZMidiPitchBendInfo : public ZTemplateMidiBufferInfo<std::int16_t, 256>
{
public:
    void WriteBend (std::uint8_t low, std::uint8_t high, std::int32_t time);
};

/// The MIDI state of an effect that wants notes. "Now" in the queries is after the newest event; "at" is a sample time
/// of the block between BeginBlock and EndBlock. A bad note or controller number, or place, reads as stated.
/// Audio thread; allocates nothing.
class ZMidiEvent
{
public:
    virtual ~ZMidiEvent () = default;

    /// Takes one event. Other kinds than notes, controllers (123 also ends all notes) and pitch bend are ignored.
    void Event (std::uint8_t status, std::uint8_t data1, std::uint8_t data2, std::int32_t time);
    void BeginBlock ();
    void EndBlock ();

    std::uint8_t Velocity (std::int32_t note) const;                      ///< now; bad note: 0
    std::uint8_t VelocityAt (std::int32_t note, std::int32_t time) const; ///< bad note: 0
    bool IsNoteOn (std::int32_t note) const { return Velocity (note) != 0; }
    std::int32_t NewestNote () const; ///< now; -1 when none is held
    std::int32_t NewestNoteAt (std::int32_t time) const;
    std::int32_t HeldNote (std::int32_t place) const; ///< now, 0 the oldest; bad place: -1
    std::int32_t HeldNoteAt (std::int32_t place, std::int32_t time) const;
    std::int32_t HeldCount () const { return notes.Latest ().count; }
    std::int32_t HeldCountAt (std::int32_t time) const { return notes.At (time).count; }
    std::uint8_t Controller (std::int32_t controller) const; ///< now; bad controller: 0
    std::uint8_t ControllerAt (std::int32_t controller, std::int32_t time) const;
    std::int16_t PitchBend () const { return bend.Latest (); }
    std::int16_t PitchBendAt (std::int32_t time) const { return bend.At (time); }

    const ZMidiNoteInfo& Notes () const { return notes; } ///< whole states, to be copied
    const ZMidiControlChangeInfo& Controllers () const { return controllers; }

private:
    ZMidiNoteInfo notes;
    ZMidiControlChangeInfo controllers;
    ZMidiPitchBendInfo bend;
};

/// Short forms for engines in the older style: ask once for the count of held notes at a time, then walk the entries
/// at that time; choose a controller, then ask for its value.
class ZOldMidiEvent : public ZMidiEvent
{
public:
    std::int32_t HeldCountAtTime (std::int32_t sampleTime); ///< remembers the time
    std::int32_t HeldNoteThen (std::int32_t place) const { return HeldNoteAt (place, time); }
    std::uint8_t VelocityThen (std::int32_t note) const { return VelocityAt (note, time); }
    void SetController (std::uint16_t number) { controller = number; }
    std::uint8_t ControllerThen () const { return ControllerAt (controller, time); }

private:
    std::int32_t time = 0; // of the last HeldCountAtTime
    std::uint16_t controller = 0;
};

} // namespace tessaly
