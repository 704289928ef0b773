#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include <doctest/doctest.h>

// Values that the host holds, the parameter objects show, and the storage and the engine have: they must not part.

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr Vst::ParamID kDrive = 0;
constexpr Vst::ParamID kAttack = 1;
constexpr Vst::ParamID kMorph = 20;
constexpr Vst::ParamID kOutputMeter = 0x10000001;

} // namespace

TEST_CASE ("After an offline render the host's values reach the strip, though its parameter objects hold them")
{
    StripInHost strip;
    const auto before = strip.instance.SaveState ();
    strip.Start (Vst::kOffline);
    strip.Run (0.5f, 16, { { kDrive, 0.8 }, { kMorph, 1.0 } });
    CHECK (strip.instance.SaveState () != before);
    CHECK (strip.Set (kDrive, 0.5) == kResultOk);
    CHECK (strip.Set (kMorph, 0.0) == kResultOk);
    CHECK (strip.instance.SaveState () == before);
}

TEST_CASE ("After a state that the controller was not told of the host's value reaches the strip")
{
    StripInHost source;
    source.Set (kDrive, 0.8);
    auto state = source.instance.SaveState ();
    ResizableMemoryIBStream stream;
    stream.write (state.data (), static_cast<int32> (state.size ()), nullptr);
    stream.rewind ();
    StripInHost strip;
    const auto before = strip.instance.SaveState ();
    CHECK (strip.instance.Component ().setState (&stream) == kResultOk);
    CHECK (strip.Set (kDrive, 0.5) == kResultOk);
    CHECK (strip.instance.SaveState () == before);
}

TEST_CASE ("The parameter objects follow an offline block's points, and tell nobody")
{
    StripInHost strip;
    strip.Start (Vst::kOffline);
    strip.calls.clear ();
    strip.Run (0.5f, 16, { { kDrive, 0.75 }, { kMorph, 1.0 } });
    CHECK (strip.Value (kDrive) == 0.75);
    CHECK (strip.Value (kAttack) == doctest::Approx (38.0 / 226.0)); // the last key point's step 95, of 57 to 283
    CHECK (strip.calls.empty ());
}

TEST_CASE ("A state given to the processor alone shows, and the dial at 0 morphs anew")
{
    StripInHost source;
    source.Set (kMorph, 1.0);
    auto state = source.instance.SaveState ();
    ResizableMemoryIBStream stream;
    stream.write (state.data (), static_cast<int32> (state.size ()), nullptr);
    stream.rewind ();
    StripInHost strip;
    CHECK (strip.instance.Component ().setState (&stream) == kResultOk);
    CHECK (strip.instance.Controller ().setState (nullptr) == kResultOk);
    CHECK (strip.Value (kMorph) == 1.0);
    CHECK (strip.Value (kAttack) == doctest::Approx (38.0 / 226.0));
    CHECK (strip.Set (kMorph, 0.0) == kResultOk);
    CHECK (strip.Value (kAttack) == doctest::Approx (127.0 / 226.0)); // the first one's step 184
}

TEST_CASE ("A host's own double of a restored dial makes no fresh morph")
{
    StripInHost source;
    source.Set (kMorph, 0.3); // no float
    source.Set (kAttack, 0.25);
    const auto state = source.instance.SaveState ();
    StripInHost strip;
    strip.instance.LoadState (state);
    CHECK (strip.Set (kMorph, 0.3) == kResultOk);
    CHECK (strip.Value (kAttack) == 0.25);
    CHECK (strip.instance.SaveState () == state);
}

TEST_CASE ("An input without channels gives silence, not what the host's buffer held")
{
    StripInHost strip;
    strip.Start ();
    for (const bool hasList : { true, false })
    {
        MonoBlock block (0.25f);
        Vst::AudioBusBuffers none;
        block.data.inputs = &none;
        if (hasList)
            none.channelBuffers32 = &block.channel;
        CHECK (strip.instance.Processor ().process (block.data) == kResultOk);
        CHECK (block.samples == MonoBlock (0.0f).samples);
    }
}

TEST_CASE ("After stop and start the controller's meters show nothing, and take the value they had")
{
    StripInHost strip;
    strip.Start ();
    strip.Set (kOutputMeter, 0.5);
    strip.instance.Deactivate ();
    strip.instance.Activate ();
    CHECK (strip.Value (kOutputMeter) == 0.0);
    CHECK (strip.Set (kOutputMeter, 0.5) == kResultOk);
    CHECK (strip.Value (kOutputMeter) == 0.5);
}
