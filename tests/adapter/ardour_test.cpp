#include "channel_strip_effect.h"
#include "joined_halves.h"
#include "live_effect.h"
#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include "thread_count.h"
#include <algorithm>
#include <array>
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

std::string StoredState (JoinedHalves& copy)
{
    ResizableMemoryIBStream stream;
    CHECK (copy.processor->getState (&stream) == kResultOk);
    return { static_cast<const char*> (stream.getData ()), static_cast<std::size_t> (stream.getCursor ()) };
}

} // namespace

TEST_CASE ("In Ardour points alone are heard, by both copies, with one thread for all; elsewhere there is none")
{
    const auto wanted = EditedState ();
    const auto threads = ThreadCount ();
    {
        Strip left (kArdour);
        Strip right (kArdour);
        Strip another (kAnother);
        another.Start ();
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

TEST_CASE ("A host of another name plays Ardour's session as it plays it without the points, whatever they are")
{
    const auto state = EditedState ();
    const auto play = [&] (const char* name, const std::vector<host::ParameterPoint>& lanes)
    {
        Strip strip (name);
        for (Vst::ParamID id = 0; id < kBypass; ++id) // the session comes back; what is told is deaf to points at first
            strip.Set (id, 0.375);
        strip.instance.LoadState (state);
        strip.Start ();
        std::vector<double> seen;
        for (int i = 0; i < 20; ++i)
        {
            if (i == 10)
                strip.Set (kMorph, 1.0); // a generic control, with stale points after it
            for (const float sample : strip.Run (0.1f, 256, lanes))
                seen.push_back (static_cast<double> (sample));
            seen.push_back (strip.Value (kMidGain));
        }
        strip.instance.Deactivate ();
        for (const auto& call : strip.calls)
            seen.insert (seen.end (), { static_cast<double> (call.kind), static_cast<double> (call.id), call.value });
        for (const auto byte : strip.instance.SaveState ())
            seen.push_back (std::to_integer<int> (byte));
        return seen;
    };
    const std::vector<host::ParameterPoint> lanes{ { kMidGain, 0.25 }, { kMorph, 0.5 }, { kBypass, 1.0 } };
    CHECK (play (kAnother, lanes) == play (kAnother, {}));
    CHECK (play (kArdour, lanes) != play (kArdour, {}));
}

TEST_CASE ("A set chosen in the window of Ardour's first copy is the others', too, until they go")
{
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
    CHECK (StoredState (right) == StoredState (left));
    CHECK (right.controller->getParamNormalized (kMidGain) == 0.25);

    CHECK (handler->removeSlave (right.controller) == kResultOk);
    effect->SetKeyPointName ("Another");
    left.controller->SyncParameter (-1);
    CHECK (StoredState (right) != StoredState (left));
}

TEST_CASE ("What is stored while late points are delivered is of one moment, by the host or for another copy")
{
    JoinedHalves left (nullptr, kArdour);
    JoinedHalves right (nullptr, kArdour);
    const FUnknownPtr<ardour::ICopyHandler> handler (static_cast<Vst::IEditController*> (left.controller));
    CHECK (handler->addSlave (right.controller, 0) == kResultOk);
    auto* const late = LiveEffect::Find (left.Effect ())->LatePoints ();
    const auto morph = [&] (float position)
    {
        late->Note (kMorph, position);
        late->DeliverOffline (); // whatever has been edited
        return StoredState (left);
    };
    const std::array wanted{ morph (0.375f), morph (1.0f) };
    std::atomic<bool> done = false;
    std::thread delivering (
        [&]
        {
            for (float position = 0.375f; !done; position = 1.375f - position)
            {
                late->Note (kMorph, position);
                late->DeliverOffline (); // whatever has been edited
            }
        });
    int torn = 0;
    for (int i = 0; i < 1000; ++i)
    {
        left.controller->SyncParameter (-1);
        for (auto* const copy : { &left, &right })
            torn += std::ranges::find (wanted, StoredState (*copy)) == wanted.end () ? 1 : 0;
    }
    done = true;
    delivering.join ();
    CHECK (torn == 0);
}
