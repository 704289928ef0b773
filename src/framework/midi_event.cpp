#include "midi_event.h"

#include <algorithm>

namespace tessaly
{

namespace
{

constexpr std::uint8_t kDataMask = 0x7F;
constexpr std::uint8_t kAllNotesOff = 123;
constexpr std::int32_t kMostNotes = 127;

bool IsData (std::int32_t number)
{
    return number >= 0 && number <= kDataMask;
}

void Remove (KVP_MidiNote_Data& notes, std::uint8_t note)
{
    notes.velocity[note] = 0;
    const auto place = std::find (notes.order.begin (), notes.order.end (), note);
    if (place == notes.order.end ())
        return;
    std::copy (place + 1, notes.order.end (), place);
    notes.order.back () = kNoNote;
    notes.count = std::max (notes.count - 1, 0);
}

std::int32_t NoteIn (const KVP_MidiNote_Data& notes, std::int32_t place)
{
    if (place < 0 || place >= notes.count)
        return -1;
    return notes.order[static_cast<std::size_t> (place)];
}

template <typename Array>
std::uint8_t Entry (const Array& bytes, std::int32_t number)
{
    return IsData (number) ? bytes[static_cast<std::size_t> (number)] : std::uint8_t{ 0 };
}

} // namespace

void ZMidiNoteInfo::NoteOn (std::uint8_t note, std::uint8_t velocity, std::int32_t time)
{
    if (!IsData (note))
        return;
    auto notes = Latest ();
    Remove (notes, note);
    if (velocity != 0)
    {
        notes.order[static_cast<std::size_t> (notes.count)] = note;
        notes.velocity[note] = velocity;
        notes.count = std::min (notes.count + 1, kMostNotes);
    }
    Write (notes, time);
}

void ZMidiNoteInfo::NoteOff (std::uint8_t note, std::int32_t time)
{
    NoteOn (note, 0, time);
}

void ZMidiNoteInfo::AllOff (std::int32_t time)
{
    Write ({}, time);
}

void ZMidiControlChangeInfo::WriteController (std::uint8_t controller, std::uint8_t value, std::int32_t time)
{
    if (!IsData (controller))
        return;
    auto values = Latest ();
    values.value[controller] = value;
    Write (values, time);
}

void ZMidiPitchBendInfo::WriteBend (std::uint8_t low, std::uint8_t high, std::int32_t time)
{
    Write (static_cast<std::int16_t> ((high & kDataMask) << 7 | (low & kDataMask)), time);
}

void ZMidiEvent::Event (std::uint8_t status, std::uint8_t data1, std::uint8_t data2, std::int32_t time)
{
    switch (status & 0xF0)
    {
    case 0x80:
        notes.NoteOff (data1, time);
        break;
    case 0x90:
        notes.NoteOn (data1, data2, time);
        break;
    case 0xB0:
        controllers.WriteController (data1, data2, time);
        if (data1 == kAllNotesOff)
            notes.AllOff (time);
        break;
    case 0xE0:
        bend.WriteBend (data1, data2, time);
        break;
    default:
        break;
    }
}

void ZMidiEvent::BeginBlock ()
{
    notes.BeginBlock ();
    controllers.BeginBlock ();
    bend.BeginBlock ();
}

void ZMidiEvent::EndBlock ()
{
    notes.EndBlock ();
    controllers.EndBlock ();
    bend.EndBlock ();
}

std::uint8_t ZMidiEvent::Velocity (std::int32_t note) const
{
    return Entry (notes.Latest ().velocity, note);
}

std::uint8_t ZMidiEvent::VelocityAt (std::int32_t note, std::int32_t time) const
{
    return Entry (notes.At (time).velocity, note);
}

std::int32_t ZMidiEvent::NewestNote () const
{
    return HeldNote (HeldCount () - 1);
}

std::int32_t ZMidiEvent::NewestNoteAt (std::int32_t time) const
{
    return HeldNoteAt (HeldCountAt (time) - 1, time);
}

std::int32_t ZMidiEvent::HeldNote (std::int32_t place) const
{
    return NoteIn (notes.Latest (), place);
}

std::int32_t ZMidiEvent::HeldNoteAt (std::int32_t place, std::int32_t time) const
{
    return NoteIn (notes.At (time), place);
}

std::uint8_t ZMidiEvent::Controller (std::int32_t controller) const
{
    return Entry (controllers.Latest ().value, controller);
}

std::uint8_t ZMidiEvent::ControllerAt (std::int32_t controller, std::int32_t time) const
{
    return Entry (controllers.At (time).value, controller);
}

std::int32_t ZOldMidiEvent::HeldCountAtTime (std::int32_t sampleTime)
{
    time = sampleTime;
    return HeldCountAt (time);
}

} // namespace tessaly
