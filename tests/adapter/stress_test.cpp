#include "strip_in_host.h"
#include <atomic>
#include <cstdlib>
#include <random>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

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

/// What a host's windows do.
bool UseControls (Vst::IEditController& controller, Dice& dice)
{
    const auto id = dice.Parameter ();
    const int what = dice.Upto (4);
    Vst::String128 text;
    if (what == 0)
        controller.setComponentState (nullptr);
    else if (what == 1)
        controller.getParamStringByValue (id, controller.getParamNormalized (id), text);
    else
        controller.setParamNormalized (what == 2 ? kMorph : id, dice.Value ());
    return true;
}

/// Restores the state, or saves one. @return false if what was saved is no state
bool UseState (const StripInHost& strip, const std::vector<std::byte>& state, Dice& dice)
{
    if (dice.Upto (1) == 0)
        return strip.instance.SaveState ().size () == kStateBytes;
    strip.LoadIntoProcessor (state);
    return true;
}

/// What half of full scale comes to in two seconds.
float SettledLevel (StripInHost& strip)
{
    strip.Start ();
    for (int i = 0; i < 24; ++i)
        strip.Run (0.5f, 4096);
    const float level = strip.Run (0.5f, 1).back ();
    strip.instance.Deactivate ();
    return level;
}

/// A thread's work: rounds with dice of its own, of which one that returns false ends `good`. TESSALY_STRESS_ROUNDS
/// makes the run longer.
auto Repeated (unsigned seed, std::atomic<bool>& good, auto round)
{
    return [dice = Dice (seed), &good, round] () mutable
    {
        const char* const wanted = std::getenv ("TESSALY_STRESS_ROUNDS");
        for (int i = wanted != nullptr ? std::atoi (wanted) : 1500; i > 0; --i)
            if (!round (dice))
                good = false;
    };
}

} // namespace

TEST_CASE ("Stress: audio, the host's windows and its projects use one instance at once, in real time and offline")
{
    StripInHost source;
    source.Set (kMorph, 0.3);
    source.Set (kDrive, 0.25);
    const auto state = source.instance.SaveState ();
    for (const char* const name : { "strip test", "Ardour" }) // which has a thread more
        for (const int32 mode : { Vst::kRealtime, Vst::kOffline })
        {
            CAPTURE (name);
            CAPTURE (mode);
            StripInHost strip ({}, nullptr, name);
            strip.Start (mode);
            std::atomic<bool> good = true;
            std::thread audio (Repeated (1, good, [&] (Dice& dice) { return PlayOneBlock (strip, dice); }));
            std::thread projects (Repeated (2, good, [&] (Dice& dice) { return UseState (strip, state, dice); }));
            auto useControls =
                Repeated (3, good, [&] (Dice& dice) { return UseControls (strip.instance.Controller (), dice); });
            if (mode == Vst::kOffline) // some hosts set parameters from a thread of their own
                std::thread (useControls).join ();
            else
                useControls ();
            audio.join ();
            projects.join ();
            CHECK (good);

            // Quiet again: the last settings hold, in what is saved and in what is heard.
            strip.instance.LoadState (state);
            CHECK (strip.instance.SaveState () == state);
            strip.instance.Deactivate ();
            CHECK (SettledLevel (strip) == doctest::Approx (SettledLevel (source)));
        }
}
