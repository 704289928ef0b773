#include "effect_listener.h"
#include "pluginterfaces/vst/vstspeaker.h"
#include "strip_in_host.h"
#include <doctest/doctest.h>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr Vst::ParamID kTotalGain = 17;

/// Level far below the compressor's threshold, so that only "Total Gain" speaks.
constexpr float kQuiet = 0.0001f;

/// @param points  go with the first block; every glide has landed after the last
float GainAfterGlide (StripInHost& strip, const std::vector<host::ParameterPoint>& points = {})
{
    strip.Run (kQuiet, 4096, points);
    for (int i = 0; i < 4; ++i)
        strip.Run (kQuiet, 4096);
    return strip.Run (kQuiet, 64).back () / kQuiet;
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
    CHECK (processor.setBusArrangements (&mono, 1, &mono, 1) == kResultTrue);
    CHECK (processor.setBusArrangements (&left, 1, &left, 1) == kResultTrue);
    CHECK (processor.setBusArrangements (&stereo, 1, &mono, 1) == kResultFalse);
    CHECK (processor.setBusArrangements (&mono, 1, &stereo, 1) == kResultFalse);
    CHECK (processor.setBusArrangements (nullptr, 0, nullptr, 0) == kResultFalse);

    CHECK (processor.canProcessSampleSize (Vst::kSample64) == kResultFalse);
    strip.Start (Vst::kRealtime, 44100.0);
    CHECK (processor.getTailSamples () == 308700); // seven seconds
    CHECK (processor.getLatencySamples () == 0);
}

TEST_CASE ("A block's points are dropped in real time and applied offline, the first block after it included")
{
    StripInHost strip;
    strip.Start ();
    const float before = GainAfterGlide (strip);
    CHECK (GainAfterGlide (strip, { { kTotalGain, 1.0 } }) == doctest::Approx (before));

    // The mode travels with each block; hosts switch it between blocks.
    strip.instance.Deactivate ();
    strip.Start (Vst::kOffline);
    CHECK (GainAfterGlide (strip, { { kTotalGain, 1.0 } }) == doctest::Approx (before * std::pow (10.0, 18.0 / 20.0)));
    strip.instance.Deactivate ();
    strip.Start (Vst::kRealtime);
    CHECK (GainAfterGlide (strip, { { kTotalGain, 0.5 } }) == doctest::Approx (before));
    CHECK (GainAfterGlide (strip, { { kTotalGain, 1.0 } }) == doctest::Approx (before));
}

TEST_CASE ("Ten thousand points of one block leave what they leave one block each, in their order, offline only")
{
    std::vector<host::ParameterPoint> points;
    for (const auto& [id, count] : { std::pair{ kTotalGain, 2904 }, { Vst::ParamID{ 20 }, 4096 }, { 0u, 3000 } })
        for (int i = 0; i < count; ++i)
            points.push_back ({ id, i % 97 / 96.0, i });
    StripInHost together;
    StripInHost apart;
    const auto before = together.instance.SaveState ();
    together.Start ();
    together.Run (kQuiet, 4096, points);
    CHECK (together.instance.SaveState () == before);

    together.instance.Deactivate ();
    together.Start (Vst::kOffline);
    apart.Start (Vst::kOffline);
    together.Run (kQuiet, 4096, points);
    for (const auto& point : points)
        apart.Run (kQuiet, 1, { { point.id, point.value } });
    CHECK (together.instance.SaveState () == apart.instance.SaveState ());
    CHECK (together.instance.SaveState () != before);
}

TEST_CASE ("A point that is no number is dropped, one beyond the range counts as its end")
{
    StripInHost strip;
    strip.Start (Vst::kOffline);
    const auto valueAfter = [&strip] (double value)
    {
        strip.Run (kQuiet, 16, { { kTotalGain, value } });
        strip.instance.Controller ().setComponentState (nullptr);
        return strip.instance.Parameters ().Normalized (kTotalGain);
    };
    CHECK (valueAfter (7.0) == 1.0);
    CHECK (valueAfter (-HUGE_VAL) == 0.0);
    CHECK (valueAfter (HUGE_VAL) == 1.0);
    CHECK (valueAfter (-1e-9) == 0.0);
    CHECK (valueAfter (0.25) == 0.25);
    CHECK (valueAfter (std::nan ("")) == 0.25);
}

TEST_CASE ("Each block gives one point a meter at its first sample, a flush gives none, an empty block repeats them")
{
    StripInHost strip;
    strip.Start ();
    strip.Run (0.5f, 256);
    REQUIRE (strip.meters.size () == 2);
    CHECK (strip.meters[0].id == 0x10000000);
    CHECK (strip.meters[1].id == 0x10000001);
    CHECK (strip.meters[0].sampleOffset == 0);
    CHECK (strip.meters[1].value > 0.0);
    const double output = strip.meters[1].value;
    strip.Run (0.0f, 0);
    REQUIRE (strip.meters.size () == 2);
    CHECK (strip.meters[1].value == output);

    Vst::ProcessData flush;
    flush.processMode = Vst::kOffline;
    Vst::ParameterChanges changes;
    int32 index = 0;
    for (Vst::ParamID id = 0; id < 22; ++id)
        changes.addParameterData (id, index)->addPoint (0, 1.0, index);
    Vst::ParameterChanges outputs;
    flush.inputParameterChanges = &changes;
    flush.outputParameterChanges = &outputs;
    const double gain = strip.instance.Parameters ().Normalized (kTotalGain);
    CHECK (strip.instance.Processor ().process (flush) == kResultOk);
    CHECK (outputs.getParameterCount () == 0);
    CHECK (strip.instance.Parameters ().Normalized (kTotalGain) == gain);
}

TEST_CASE ("Deactivation clears the meters at once and the output never counts as silent")
{
    StripInHost strip;
    strip.Start ();
    strip.Run (0.5f, 256);
    strip.instance.Deactivate ();
    strip.instance.Activate ();
    std::array<float, 16> silence{};
    std::array<float, 16> out{};
    float* in0 = silence.data ();
    float* out0 = out.data ();
    Vst::AudioBusBuffers inputBus;
    inputBus.numChannels = 1;
    inputBus.silenceFlags = 1;
    inputBus.channelBuffers32 = &in0;
    Vst::AudioBusBuffers outputBus;
    outputBus.numChannels = 1;
    outputBus.silenceFlags = 1;
    outputBus.channelBuffers32 = &out0;
    Vst::ProcessData data;
    data.symbolicSampleSize = Vst::kSample32;
    data.numSamples = 16;
    data.numInputs = data.numOutputs = 1;
    data.inputs = &inputBus;
    data.outputs = &outputBus;
    CHECK (strip.instance.Processor ().process (data) == kResultOk);
    CHECK (outputBus.silenceFlags == 0);

    // Doubles are refused; a host that sends them all the same gets its memory back as it was.
    data.symbolicSampleSize = Vst::kSample64;
    out.fill (0.25f);
    CHECK (strip.instance.Processor ().process (data) == kResultOk);
    CHECK (out[0] == 0.25f);
    data.symbolicSampleSize = Vst::kSample32;

    // A host that gives no memory for a channel gets its call back unharmed.
    inputBus.channelBuffers32 = nullptr;
    outputBus.channelBuffers32 = nullptr;
    CHECK (strip.instance.Processor ().process (data) == kResultOk);
}

TEST_CASE ("An editor that announces itself hears the effect's codes until it leaves")
{
    class Listener final : public ZEffectListener
    {
    public:
        bool OnEffectEvent (std::int32_t code, void* data) override
        {
            codes.push_back (code);
            if (code == 5)
                rateHz = *static_cast<double*> (data);
            return true;
        }
        bool OnEffectEvent2 (std::int32_t, void*) override { return false; }
        std::vector<std::int32_t> codes;
        double rateHz = 0.0;
    };

    StripInHost strip;
    const auto send = [&] (const char* id, const void* data, uint32 size)
    { return Send (strip, &strip.instance.Component (), id, data, size); };

    Listener listener;
    ZEffectListener* pointer = &listener;
    REQUIRE (send ("ConnectEditorPointer", &pointer, sizeof (pointer)) == kResultOk);
    strip.instance.Setup (96000.0, 512, Vst::kRealtime);
    CHECK (listener.codes == std::vector<std::int32_t>{ 5, 6 });
    CHECK (listener.rateHz == 96000.0);
    listener.codes.clear ();
    strip.instance.Parameters ().SetNormalized (20, 1.0);
    CHECK (listener.codes == std::vector<std::int32_t> (17, 12)); // one a morphed parameter
    REQUIRE (send ("DisconnectEditorPointer", &pointer, sizeof (pointer)) == kResultOk);
    listener.codes.clear ();
    strip.instance.Parameters ().SetNormalized (20, 0.0);
    CHECK (listener.codes.empty ());
}
