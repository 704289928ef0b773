#include "pluginterfaces/vst/vstspeaker.h"
#include "strip_in_host.h"

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

void Announce (const StripInHost& strip, ZEffectListener& editor)
{
    const auto* const pointer = &editor;
    REQUIRE (Send (&strip.instance.Component (), "ConnectEditorPointer", &pointer, sizeof (pointer)) == kResultOk);
}

} // namespace

TEST_CASE ("The strip has one mono bus each way, takes any one speaker and refuses the rest")
{
    StripInHost strip;
    auto& component = strip.instance.Component ();
    auto& processor = strip.instance.Processor ();
    CHECK (component.getBusCount (Vst::kAudio, Vst::kInput) == 1);
    CHECK (component.getBusCount (Vst::kAudio, Vst::kOutput) == 1);
    CHECK (component.getBusCount (Vst::kEvent, Vst::kInput) == 0);

    Vst::SpeakerArrangement mono = Vst::SpeakerArr::kMono;
    Vst::SpeakerArrangement left = Vst::kSpeakerL;
    Vst::SpeakerArrangement stereo = Vst::SpeakerArr::kStereo;
    CHECK (processor.setBusArrangements (&mono, 1, &left, 1) == kResultTrue);
    CHECK (processor.setBusArrangements (&stereo, 1, &mono, 1) == kResultFalse);
    CHECK (processor.setBusArrangements (&mono, 1, &stereo, 1) == kResultFalse);
    CHECK (processor.setBusArrangements (nullptr, 0, nullptr, 0) == kResultFalse);

    CHECK (processor.canProcessSampleSize (Vst::kSample64) == kResultFalse);
    strip.Start (Vst::kRealtime, 44100.0);
    CHECK (processor.getTailSamples () == 308700); // seven seconds
    CHECK (processor.getLatencySamples () == 0);
}

TEST_CASE ("A NaN point is dropped, one beyond the range counts as its end")
{
    StripInHost strip;
    strip.Start (Vst::kOffline);
    for (const auto& [value, taken] :
         { std::pair{ -HUGE_VAL, 0.0 }, { 7.0, 1.0 }, { -1e-9, 0.0 }, { 0.25, 0.25 }, { std::nan (""), 0.25 } })
    {
        strip.Run (0.5f, 16, { { kTotalGain, value } });
        CHECK (strip.Value (kTotalGain) == taken);
    }
}

TEST_CASE ("An empty block repeats the meters, a flush gives and takes no points, and a stop clears the meters")
{
    StripInHost strip;
    strip.Start ();
    strip.Run (0.5f, 256);
    const auto meters = strip.meters;
    strip.Run (0.0f, 0);
    REQUIRE (strip.meters.size () == 2);
    CHECK (strip.meters[1].value > 0.0);
    CHECK (strip.meters[1].value == meters[1].value);

    Vst::ProcessData flush;
    flush.processMode = Vst::kOffline;
    Vst::ParameterChanges changes;
    Vst::ParameterChanges outputs;
    int32 index = 0;
    changes.addParameterData (kTotalGain, index)->addPoint (0, 1.0, index);
    flush.inputParameterChanges = &changes;
    flush.outputParameterChanges = &outputs;
    const auto before = strip.instance.SaveState ();
    CHECK (strip.instance.Processor ().process (flush) == kResultOk);
    CHECK (outputs.getParameterCount () == 0);
    CHECK (strip.instance.SaveState () == before);

    strip.instance.Deactivate ();
    strip.Run (0.0f, 0);
    CHECK (strip.meters[1].value == 0.0);
}

TEST_CASE ("The output never counts as silent, doubles or a channel without memory are left, no input is silence")
{
    StripInHost strip;
    strip.Start ();
    MonoBlock block (0.0f);
    block.bus.silenceFlags = 1;
    CHECK (strip.instance.Processor ().process (block.data) == kResultOk);
    CHECK (block.bus.silenceFlags == 0);

    block.data.symbolicSampleSize = Vst::kSample64; // refused, but sent all the same
    block.samples.fill (0.25f);
    CHECK (strip.instance.Processor ().process (block.data) == kResultOk);
    CHECK (block.samples[0] == 0.25f);
    block.data.symbolicSampleSize = Vst::kSample32;
    for (auto** const list : { &block.channel, static_cast<float**> (nullptr) })
    {
        Vst::AudioBusBuffers none;
        none.channelBuffers32 = list;
        none.numChannels = list == nullptr ? 1 : 0;
        block.data.inputs = &none;
        block.samples.fill (0.25f);
        CHECK (strip.instance.Processor ().process (block.data) == kResultOk);
        CHECK (block.samples == MonoBlock (0.0f).samples);
    }
    block.data.inputs = &block.bus;
    block.bus.channelBuffers32 = nullptr;
    CHECK (strip.instance.Processor ().process (block.data) == kResultOk);
}

TEST_CASE ("An editor that announces itself hears the effect's codes until it leaves")
{
    StripInHost strip;
    RecordingEditor editor;
    Announce (strip, editor);
    strip.instance.Setup (96000.0, 512, Vst::kRealtime);
    CHECK (editor.log == "5 6 ");
    CHECK (editor.rate == 96000.0);
    strip.Set (kMorph, 1.0);
    CHECK (editor.log.size () == 4 + 17 * 3); // one "12 " a morphed parameter
    REQUIRE (Send (&strip.instance.Component (), "DisconnectEditorPointer", &strip, 1) == kResultOk); // any data
    strip.Set (kMorph, 0.0);
    CHECK (editor.log.size () == 4 + 17 * 3);
}

TEST_CASE ("An offline block's points reach the strip with the block, or by 64, a real-time one's do not")
{
    StripInHost strip;
    strip.Start (Vst::kOffline);
    RecordingEditor editor;
    Announce (strip, editor);
    std::vector<host::ParameterPoint> points;
    for (int offset = 0; offset < 67; ++offset)
        points.push_back ({ 21, 1.0, offset });
    strip.Run (0.5f, 128, points);
    // Each point tells of the bypass as it was before its block; the 65th made room, so the next one sees the others.
    std::vector<bool> expected (65, false);
    expected.resize (67, true);
    CHECK (editor.bypasses == expected);

    strip.instance.Deactivate ();
    strip.Start ();
    strip.Run (0.5f, 128); // the first block after an offline one still takes points
    const auto state = strip.instance.SaveState ();
    for (auto& point : points)
        point.value = 0.0;
    strip.Run (0.5f, 128, points);
    CHECK (strip.instance.SaveState () == state);
}
