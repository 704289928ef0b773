#include "joined_halves.h"
#include "midi_event.h"
#include "parameter_ids.h"
#include "public.sdk/source/vst/hosting/eventlist.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("Notes, controllers and pitch bend of a block reach an effect that has MIDI")
{
    JoinedHalves halves;
    halves.Effect ()->CreateMidiEvent (); // the strip has none of its own
    ZMidiEvent* midi = nullptr;
    REQUIRE (halves.Effect ()->GetInfo (kCodeMidiEvent, &midi));

    Vst::EventList events;
    const auto add = [&events] (std::uint16_t type, int16 pitch, float velocity)
    {
        Vst::Event event{};
        event.type = type;
        (type == Vst::Event::kNoteOnEvent ? event.noteOn.pitch : event.noteOff.pitch) = pitch;
        (type == Vst::Event::kNoteOnEvent ? event.noteOn.velocity : event.noteOff.velocity) = velocity;
        events.addEvent (event);
    };
    add (Vst::Event::kNoteOnEvent, 60, 0.5f);
    add (Vst::Event::kNoteOnEvent, 64, 1.0f);
    add (Vst::Event::kNoteOffEvent, 60, 0.5f);
    add (Vst::Event::kDataEvent, 64, 0.0f);

    Vst::ParameterChanges changes;
    const auto point = [&changes] (Vst::ParamID id, double value)
    {
        int32 index = 0;
        changes.addParameterData (id, index)->addPoint (0, value, index);
    };
    point (kFirstMidiId + 7, 0.5);
    point (kFirstMidiId + 127, 1.0);
    point (kFirstMidiId + 128, 1.0); // aftertouch, which is not taken
    point (kFirstMidiId + kMidiPitchBend, 0.75);
    point (kEndMidiId, 1.0);

    Vst::ProcessData data;
    data.inputEvents = &events;
    data.inputParameterChanges = &changes;
    CHECK (halves.processor->process (data) == kResultOk);
    CHECK (midi->HeldCount () == 1);
    CHECK (midi->Velocity (64) == 127);
    CHECK (midi->Controller (7) == 63); // truncated
    CHECK (midi->Controller (127) == 127);
    CHECK (midi->Controller (0) == 0);
    CHECK (midi->PitchBend () == 12287); // 0.75 * 16383, truncated
}
