#include "binary_message.h"
#include "channel_strip.h"
#include "effect.h"
#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include <atomic>
#include <cstdlib>
#include <doctest/doctest.h>
#include <random>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

using State = std::vector<std::byte>;
constexpr Vst::ParamID kMorph = 20;

/// A seeded thread's choices.
struct Dice : std::minstd_rand
{
    using std::minstd_rand::minstd_rand;
    int Upto (int last) { return std::uniform_int_distribution (0, last) (*this); }
    double Value () { return std::uniform_real_distribution (0.0, 1.0) (*this); }
    Vst::ParamID Parameter () { return static_cast<Vst::ParamID> (Upto (21)); }
};

/// @return whether the block held numbers only
bool PlayOneBlock (StripInHost& strip, Dice& dice)
{
    std::vector<host::ParameterPoint> points;
    for (int i = dice.Upto (4) == 0 ? dice.Upto (200) : 0; i > 0; --i)
        points.push_back ({ dice.Parameter (), dice.Value (), dice.Upto (200) });
    return AllFinite (strip.Run (static_cast<float> (dice.Value ()), dice.Upto (300), points));
}

/// What a host's windows and an open editor do.
bool UseControls (Vst::IEditController& controller, Channel_Strip& engine, Dice& dice)
{
    const auto id = dice.Parameter ();
    const int what = dice.Upto (6);
    Vst::String128 text;
    if (what == 0)
        controller.setComponentState (nullptr);
    else if (what == 1)
        controller.getParamStringByValue (id, controller.getParamNormalized (id), text);
    else if (what == 2)
        engine.eqResponseDb (1000.0 * dice.Value (), static_cast<std::int16_t> (dice.Upto (3)));
    else if (what == 3)
        engine.compressorCurveDb (-60.0 * dice.Value ());
    else
        controller.setParamNormalized (what == 4 ? kMorph : id, dice.Value ());
    return true;
}

/// Restores one of the states, or saves. @return false if what was saved is no state
bool UseState (const host::PluginInstance& instance, const std::array<State, 2>& states, Dice& dice)
{
    if (const auto which = static_cast<std::size_t> (dice.Upto (2)); which < states.size ())
    {
        auto state = states[which];
        ResizableMemoryIBStream stream;
        stream.write (state.data (), static_cast<int32> (state.size ()), nullptr);
        stream.rewind ();
        return instance.Component ().setState (&stream) == kResultOk;
    }
    return instance.SaveState ().size () == kStateBytes;
}

/// Rounds of each thread; TESSALY_STRESS_ROUNDS makes the run longer.
int Rounds ()
{
    const char* wanted = std::getenv ("TESSALY_STRESS_ROUNDS");
    return wanted != nullptr ? std::atoi (wanted) : 1500;
}

/// A thread's work: rounds with dice of its own, of which one that returns false ends `good`.
auto Repeated (unsigned seed, std::atomic<bool>& good, auto round)
{
    return [dice = Dice (seed), &good, round] () mutable
    {
        for (int i = Rounds (); i > 0; --i)
            if (!round (dice))
                good = false;
    };
}

} // namespace

TEST_CASE ("Stress: audio, the host's windows and its projects use one instance at once, in real time and offline")
{
    std::array<State, 2> states;
    for (std::size_t i = 0; i < states.size (); ++i)
    {
        StripInHost other;
        other.Set (kMorph, 0.3 + 0.5 * static_cast<double> (i));
        other.Set (0, 0.5 * static_cast<double> (i));
        states[i] = other.instance.SaveState ();
    }
    for (int round = 0; round < 4; ++round)
    {
        const int32 mode = round % 2 == 0 ? Vst::kRealtime : Vst::kOffline;
        const char* const name = round < 2 ? "strip test" : "Ardour"; // which has a thread more
        CAPTURE (mode);
        CAPTURE (name);
        host::InstanceOptions options;
        options.connection = host::ConnectionKind::none;
        StripInHost strip (options, nullptr, name);
        ZEffect* effect = nullptr; // as an editor gets it: not owned, the processor's
        const FUnknownPtr<Vst::IConnectionPoint> controller (&strip.instance.Controller ());
        Relay between;
        between.onMessage = [&] (Vst::IMessage* message)
        {
            ReadValue (*message, effect);
            return controller->notify (message);
        };
        const FUnknownPtr<Vst::IConnectionPoint> component (&strip.instance.Component ());
        REQUIRE (component->connect (&between) == kResultOk);
        ZPluginCore* core = nullptr;
        REQUIRE (effect != nullptr);
        REQUIRE (effect->GetInfo (kCodeCore, &core));
        auto& engine = static_cast<Channel_Strip&> (*core);
        strip.Start (mode);

        std::atomic<bool> good = true;
        std::thread audio (Repeated (1, good, [&] (Dice& dice) { return PlayOneBlock (strip, dice); }));
        std::thread projects (Repeated (2, good, [&] (Dice& dice) { return UseState (strip.instance, states, dice); }));
        auto useControls =
            Repeated (3, good, [&] (Dice& dice) { return UseControls (strip.instance.Controller (), engine, dice); });
        if (mode == Vst::kOffline) // some hosts set parameters from a thread of their own
            std::thread (useControls).join ();
        else
            useControls ();
        audio.join ();
        projects.join ();
        CHECK (good);

        // Quiet again: the last settings hold, in what is saved and in what is heard.
        strip.instance.LoadState (states[0]);
        CHECK (strip.instance.SaveState () == states[0]);
        const double settledDb = engine.eqResponseDb (500.0, 0);
        const double settledCurveDb = engine.compressorCurveDb (-10.0);
        strip.instance.LoadState (states[1]);
        strip.instance.LoadState (states[0]);
        CHECK (engine.eqResponseDb (500.0, 0) == settledDb);
        CHECK (engine.compressorCurveDb (-10.0) == settledCurveDb);
        strip.instance.Deactivate ();
        component->disconnect (&between);
    }
}
