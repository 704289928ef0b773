#include "channel_strip.h"
#include "effect.h"
#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "strip_in_host.h"
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <doctest/doctest.h>
#include <random>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr Vst::ParamID kMorph = 20;

/// A seeded thread's choices.
class Dice
{
public:
    explicit Dice (unsigned seed)
        : random (seed)
    {
    }
    int Upto (int last) { return std::uniform_int_distribution (0, last) (random); }
    double Value () { return std::uniform_real_distribution (0.0, 1.0) (random); }

private:
    std::minstd_rand random;
};

void PlayOneBlock (StripInHost& strip, Dice& dice, std::atomic<bool>& finite)
{
    std::vector<host::ParameterPoint> points;
    for (int i = dice.Upto (4) == 0 ? dice.Upto (200) : 0; i > 0; --i)
        points.push_back ({ static_cast<Vst::ParamID> (dice.Upto (21)), dice.Value (), dice.Upto (200) });
    const auto out = strip.Run (static_cast<float> (dice.Value ()), dice.Upto (300), points);
    if (!std::all_of (out.begin (), out.end (), [] (float sample) { return std::isfinite (sample); }))
        finite = false;
}

/// What a host's windows and an open editor do.
void UseControls (Vst::IEditController& controller, Channel_Strip& engine, Dice& dice)
{
    const auto id = static_cast<Vst::ParamID> (dice.Upto (21));
    Vst::String128 text;
    switch (dice.Upto (7))
    {
    case 0:
        controller.setParamNormalized (kMorph, dice.Value ());
        break;
    case 1:
        controller.setComponentState (nullptr);
        break;
    case 2:
        controller.getParamStringByValue (id, controller.getParamNormalized (id), text);
        break;
    case 3:
        for (std::int16_t band = 0; band < 4; ++band)
            engine.eqResponseDb (1000.0 * dice.Value (), band);
        break;
    case 4:
        engine.compressorCurveDb (-60.0 * dice.Value ());
        break;
    default:
        controller.setParamNormalized (id, dice.Value ());
        break;
    }
}

/// Restores another instance's state, or saves. @return false if what was saved is no state
bool UseState (Vst::IComponent& component, const std::array<std::vector<std::byte>, 2>& states, Dice& dice)
{
    if (const int which = dice.Upto (2); which < 2)
    {
        const auto& state = states[static_cast<std::size_t> (which)];
        ResizableMemoryIBStream stream (state.size ());
        stream.write (const_cast<std::byte*> (state.data ()), static_cast<int32> (state.size ()), nullptr);
        stream.rewind ();
        return component.setState (&stream) == kResultOk;
    }
    ResizableMemoryIBStream stream;
    int64 size = 0;
    return component.getState (&stream) == kResultOk && stream.tell (&size) == kResultOk && size == 812;
}

/// Rounds of each thread; TESSALY_STRESS_ROUNDS makes the run longer.
int Rounds ()
{
    const char* wanted = std::getenv ("TESSALY_STRESS_ROUNDS");
    return wanted != nullptr ? std::atoi (wanted) : 1500;
}

} // namespace

TEST_CASE ("Stress: audio, the host's windows and its projects use one instance at once, in real time and offline")
{
    std::array<std::vector<std::byte>, 2> states;
    for (std::size_t i = 0; i < states.size (); ++i)
    {
        StripInHost other;
        other.instance.Parameters ().SetNormalized (kMorph, 0.3 + 0.5 * static_cast<double> (i));
        other.instance.Parameters ().SetNormalized (0, 0.5 * static_cast<double> (i));
        states[i] = other.instance.SaveState ();
    }
    for (const int32 mode : { Vst::kRealtime, Vst::kOffline })
    {
        CAPTURE (mode);
        host::InstanceOptions options;
        options.connection = host::ConnectionKind::none;
        StripInHost strip (options);
        ZEffect* effect = nullptr; // as an editor gets it: not owned, the processor's
        const FUnknownPtr<Vst::IConnectionPoint> controller (&strip.instance.Controller ());
        Relay between (
            [&] (Vst::IMessage* message)
            {
                const void* data = nullptr;
                uint32 size = 0;
                if (FIDStringsEqual (message->getMessageID (), "ConnectEffectPointer") &&
                    message->getAttributes ()->getBinary ("Ptr4", data, size) == kResultOk && size == sizeof (effect))
                    std::memcpy (&effect, data, size);
                return controller->notify (message);
            });
        const FUnknownPtr<Vst::IConnectionPoint> component (&strip.instance.Component ());
        REQUIRE (component->connect (&between) == kResultOk);
        ZPluginCore* core = nullptr;
        REQUIRE (effect != nullptr);
        REQUIRE (effect->GetInfo (kCodeCore, &core));
        auto& engine = static_cast<Channel_Strip&> (*core);
        strip.Start (mode);

        const int rounds = Rounds ();
        std::atomic<bool> finite = true;
        std::atomic<bool> whole = true;
        std::thread audio (
            [&, dice = Dice (1)] () mutable
            {
                for (int i = 0; i < rounds; ++i)
                    PlayOneBlock (strip, dice, finite);
            });
        std::thread projects (
            [&, dice = Dice (2)] () mutable
            {
                for (int i = 0; i < rounds; ++i)
                    if (!UseState (strip.instance.Component (), states, dice))
                        whole = false;
            });
        auto useControls = [&, dice = Dice (3)] () mutable
        {
            for (int i = 0; i < rounds; ++i)
                UseControls (strip.instance.Controller (), engine, dice);
        };
        if (mode == Vst::kOffline) // some hosts set parameters from a thread of their own
            std::thread (useControls).join ();
        else
            useControls ();
        audio.join ();
        projects.join ();
        CHECK (finite);
        CHECK (whole);

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
