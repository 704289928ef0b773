#include "channel_strip_effect.h"
#include "joined_halves.h"
#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include "thread_count.h"
#include <chrono>
#include <thread>

// A host that calls itself Ardour and does as Ardour does, and the same program under another host's name, where
// everything stays as it is: points of real-time blocks are dropped, those of offline blocks applied as they come.

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr auto kArdour = "Ardour";
constexpr auto kAnother = "Ardour's neighbour";

using Kind = host::HandlerCall::Kind;

using Strip = StripInHost;

/// Plays until the audio half's own state is `wanted`; its controller is not asked.
bool PlaysUntil (Strip& strip, const std::vector<host::ParameterPoint>& points, const std::vector<std::byte>& wanted)
{
    const auto deadline = std::chrono::steady_clock::now () + std::chrono::seconds (20);
    while (strip.instance.SaveState () != wanted && std::chrono::steady_clock::now () < deadline)
    {
        strip.Run (0.1f, 64, points);
        std::this_thread::yield ();
    }
    return strip.instance.SaveState () == wanted;
}

/// A state with an edit on top of "Morph".
std::vector<std::byte> EditedState ()
{
    Strip source (kAnother);
    source.Set (kMorph, 0.375);
    source.Set (kMidGain, 0.5);
    return source.instance.SaveState ();
}

} // namespace

TEST_CASE ("In Ardour points alone are heard, by both copies, with one thread for all; elsewhere neither")
{
    const auto wanted = EditedState ();
    const auto threads = ThreadCount ();
    {
        Strip left (kArdour);
        Strip right (kArdour);
        Strip another (kAnother);
        const auto before = another.instance.SaveState ();
        another.Start ();
        another.Run (0.1f, 64, { { kMidGain, 0.25 }, { kMorph, 0.375 } });
        CHECK (another.instance.SaveState () == before);
        CHECK (ThreadCount () == threads);
        left.Start ();
        right.Start ();
        CHECK (ThreadCount () == threads + 1);
        CHECK (PlaysUntil (left, { { kMidGain, 0.5 }, { kMorph, 0.375 } }, wanted));
        CHECK (PlaysUntil (right, { { kMidGain, 0.5 }, { kMorph, 0.375 } }, wanted));
        left.instance.Deactivate ();
        CHECK (ThreadCount () == threads + 1);
    }
    CHECK (ThreadCount () == threads);
}

TEST_CASE ("What Ardour sent with the last block before a stop is not lost, unless a state takes its place")
{
    const auto state = EditedState ();
    Strip strip (kArdour);
    const auto before = strip.instance.SaveState ();
    for (const bool hasState : { false, true })
    {
        strip.Start ();
        strip.Run (0.1f, 64, { { kBypass, 1.0 } });
        if (hasState)
            strip.instance.LoadState (state);
        // On the host's own thread the controller, which hears of the stop, would deliver, too.
        std::thread ([&] { strip.instance.Deactivate (); }).join ();
        CHECK (strip.instance.SaveState () != before);
        CHECK ((strip.instance.SaveState () == state) == hasState);
    }
}

TEST_CASE ("Values set one by one ahead of the state leave no edits behind in Ardour, and in others as ever")
{
    const auto state = EditedState ();
    for (const auto* name : { kArdour, kAnother })
    {
        Strip source (name);
        source.instance.LoadState (state);
        Strip strip (name);
        strip.calls.clear ();
        for (Vst::ParamID id = 0; id < kParameterCount; ++id)
            strip.Set (id, source.Value (id));
        CHECK (strip.Calls (Kind::performEdit).empty () == (name == kArdour));
        CHECK (strip.Calls (Kind::beginEdit).empty () == (name == kArdour));
        CHECK (strip.Calls (Kind::restartComponent).size () == (name == kArdour ? 1 : 0));
        strip.instance.LoadState (state);
        CHECK (strip.instance.SaveState () == state);
        for (Vst::ParamID id = 0; id < kParameterCount; ++id) // and once more after it
            strip.Set (id, source.Value (id));
        CHECK (strip.instance.SaveState () == state);

        strip.Start ();
        strip.calls.clear ();
        strip.Set (kMorph, 1.0); // once it plays, all edit
        CHECK_FALSE (strip.Calls (Kind::performEdit).empty ());
    }
}

TEST_CASE ("In Ardour's export Morph goes before its block's points, and what moved is read once after it")
{
    for (const auto* name : { kArdour, kAnother })
    {
        Strip strip (name);
        strip.Start (Vst::kOffline);
        strip.Value (kMidGain);
        strip.calls.clear ();
        strip.Run (0.1f, 64, { { kMidGain, 0.125 }, { kMorph, 1.0 } });
        CHECK ((strip.Value (kMidGain) == 0.125) == (name == kArdour));
        strip.Set (kMidGain, 0.25);
        for (int i = 0; i < 3; ++i) // a flat lane
            strip.Run (0.1f, 64, { { kMorph, 1.0 } });
        CHECK ((strip.Value (kMidGain) == 0.25) == (name == kArdour));
        CHECK (strip.calls.empty ());
        strip.instance.Deactivate ();
        strip.Start ();
        strip.Run (0.1f, 64);
        strip.Value (kMidGain);
        strip.Value (kMidGain);
        CHECK (strip.Calls (Kind::restartComponent).size () == (name == kArdour ? 1 : 0));
        CHECK (strip.Calls (Kind::performEdit).empty ());
    }
}

TEST_CASE ("A set chosen in the window of Ardour's first copy is the others', too, until they go")
{
    const auto storedState = [] (JoinedHalves& copy)
    {
        ResizableMemoryIBStream stream;
        CHECK (copy.processor->getState (&stream) == kResultOk);
        return std::string (static_cast<const char*> (stream.getData ()), stream.getCursor ());
    };
    using Handler = FUnknownPtr<ardour::ICopyHandler>;
    CHECK_FALSE (Handler (static_cast<Vst::IEditController*> (JoinedHalves (nullptr, kAnother).controller)));
    JoinedHalves left (nullptr, kArdour);
    JoinedHalves right (nullptr, kArdour);
    const Handler handler (static_cast<Vst::IEditController*> (left.controller));
    CHECK (handler->addSlave (left.controller, 0) != kResultOk);
    CHECK (handler->addSlave (right.controller, 0) == kResultOk);
    auto* const effect = dynamic_cast<ZChannel_StripEffect*> (left.Effect ());
    effect->SetKeyPointName ("Chosen");
    effect->SetParameter (kMidGain, 0.25f);
    left.controller->SyncParameter (-1); // as the editor does
    CHECK (storedState (right) == storedState (left));
    CHECK (right.controller->getParamNormalized (kMidGain) == 0.25);

    CHECK (handler->removeSlave (right.controller) == kResultOk);
    effect->SetKeyPointName ("Another");
    left.controller->SyncParameter (-1);
    CHECK (storedState (right) != storedState (left));
}
