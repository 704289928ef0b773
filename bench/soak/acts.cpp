#include "acts.h"

#include "audio.h"
#include "fault.h"
#include "parameter_access.h"
#include "wild.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <thread>
#include <utility>

namespace tessaly::soak
{

using namespace Steinberg;

namespace
{

constexpr Vst::ParamID kMorph = 20;
constexpr std::size_t kMostSaved = 16;

constexpr std::array kRatesHz{ 44100.0, 48000.0, 48000.0, 88200.0, 96000.0, 192000.0, 22050.0, 8000.0, 384000.0 };
constexpr std::array<int32, 8> kBlockSizes{ 1, 16, 64, 64, 256, 512, 1024, 4096 };
constexpr std::array<int32, 4> kWildBlockSizes{ 0, -1, 7, 2000000000 };
constexpr std::array kProcessModes{ Vst::kRealtime, Vst::kRealtime, Vst::kRealtime, Vst::kPrefetch, Vst::kOffline };
constexpr std::array kTexts{ "",     "0",   "-3.5 dB", "1 kHz", "99999999999999999999", "nan", "inf",   "-1e400",
                             "Hard", "On ", "1,5",     "4:1",   "\xE2\x88\x9E",         "+-3", "0x1p4", "2.0.0" };

void PlayBlocks (StripLife& life, Scene& scene)
{
    for (std::size_t left = 1 + scene.chance.Below (8); left > 0; --left)
    {
        AudioCall call = MakeAudioCall (scene.chance, life);
        Run (life, call, scene.tally);
    }
}

void Edit (StripLife& life, Scene& scene)
{
    for (std::size_t left = 1 + scene.chance.Below (4); left > 0; --left)
    {
        const Vst::ParamID id =
            scene.chance.OneIn (30) ? scene.chance.Pick (kWildIds) : scene.chance.Pick (life.ParameterIds ());
        life.Controller ().setParamNormalized (id, MakeValue (scene.chance));
        ++scene.tally.edits;
    }
}

void SweepMorph (StripLife& life, Scene& scene)
{
    const double from = scene.chance.Unit ();
    const double to = scene.chance.Unit ();
    const std::size_t positions = 2 + scene.chance.Below (20);
    for (std::size_t i = 0; i < positions; ++i)
    {
        const double share = static_cast<double> (i) / static_cast<double> (positions - 1);
        life.Controller ().setParamNormalized (kMorph, std::clamp (from + (to - from) * share, 0.0, 1.0));
        ++scene.tally.edits;
        AudioCall call = MakeAudioCall (scene.chance, life);
        Run (life, call, scene.tally);
    }
}

void CheckShown (double value, const char* what, Vst::ParamID id)
{
    if (!(value >= 0.0 && value <= 1.0))
        throw Fault ("parameter " + std::to_string (id) + " has " + std::to_string (value) + " as " + what);
}

void ReadEverything (StripLife& life, Scene& scene)
{
    const host::ParameterAccess parameters (life.Controller ());
    for (const auto& parameter : parameters.List ())
    {
        CheckShown (parameter.defaultNormalized, "its default", parameter.id);
        CheckShown (parameters.Normalized (parameter.id), "its value", parameter.id);
        parameters.ToPlain (parameter.id, MakeValue (scene.chance));
        CheckShown (parameters.ToNormalized (parameter.id, scene.chance.Between (-500.0, 500.0)),
                    "the value of a plain one", parameter.id);
        parameters.Text (parameter.id, MakeValue (scene.chance));
        if (const auto typed = parameters.FromText (parameter.id, scene.chance.Pick (kTexts)))
            CheckShown (*typed, "the value of a typed text", parameter.id);
    }
    life.Processor ().getTailSamples ();
    life.Processor ().getLatencySamples ();
}

/// What the controller shows is what the component has, if the controller can know.
void CheckShownAlike (StripLife& life, const StateBytes& state)
{
    if (!life.IsConnected ())
        return;
    const auto values = StoredValues (state);
    for (std::size_t i = 0; i < values.size (); ++i)
        if (life.Controller ().getParamNormalized (static_cast<Vst::ParamID> (i)) != static_cast<double> (values[i]))
            throw Fault ("the controller shows another value of parameter " + std::to_string (i) +
                         " than the state that was loaded");
}

void SaveAndRestore (StripLife& life, Scene& scene)
{
    const StateBytes before = Save (life);
    if (scene.saved.size () < kMostSaved)
        scene.saved.push_back (before);
    else
        scene.saved[scene.chance.Below (kMostSaved)] = before;
    if (scene.chance.OneIn (2))
        Edit (life, scene);
    StateBytes loaded = scene.chance.Pick (scene.saved);
    if (scene.chance.OneIn (3))
        loaded = WithAnotherSet (std::move (loaded), scene.chance);
    Load (life, loaded);
    ++scene.tally.states;
    const StateBytes after = Save (life);
    CheckRestored (loaded, after);
    CheckShownAlike (life, after);
}

void LoadDamage (StripLife& life, Scene& scene)
{
    Load (life, Damaged (Save (life), scene.chance));
    ++scene.tally.states;
    CheckShownAlike (life, Save (life));
}

void ChangeHandler (StripLife& life, Scene& scene)
{
    SweepMorph (life, scene); // so that edits are open
    if (scene.chance.OneIn (3))
        life.TakeHandler ();
    else
        life.GiveHandler (scene.chance.OneIn (3));
}

void FireTimers (StripLife&, Scene& scene)
{
    scene.loop.FireTimers ();
}

void SetUpAnew (StripLife& life, Scene& scene)
{
    Chance& chance = scene.chance;
    if (life.IsActive () && !chance.OneIn (6)) // some hosts set up what runs
    {
        life.SetProcessing (false);
        life.SetActive (false);
    }
    double rateHz = chance.OneIn (5) ? chance.Between (1000.0, 400000.0) : chance.Pick (kRatesHz);
    if (chance.OneIn (25))
        rateHz = chance.Pick (kWildRatesHz);
    const int32 blockSize = chance.OneIn (25) ? chance.Pick (kWildBlockSizes) : chance.Pick (kBlockSizes);
    life.SetUp (rateHz, blockSize, static_cast<int32> (chance.Pick (kProcessModes)));
    if (!chance.OneIn (6))
        life.SetActive (true);
    if (!chance.OneIn (6))
        life.SetProcessing (true);
}

void SwitchOnOrOff (StripLife& life, Scene& scene)
{
    const bool on = scene.chance.OneIn (2); // as it is already, now and then
    if (scene.chance.OneIn (2))
        life.SetProcessing (on);
    else
        life.SetActive (on);
}

void Reconnect (StripLife& life, Scene& scene)
{
    static constexpr std::array kKinds{ host::ConnectionKind::direct, host::ConnectionKind::viaProxies,
                                        host::ConnectionKind::none };
    if (scene.chance.OneIn (2))
        life.Disconnect ();
    else
        life.Connect (scene.chance.Pick (kKinds));
}

void StartAgain (StripLife& life, Scene& scene)
{
    life.StartAgain (scene.chance);
}

/// Audio on a thread of its own while this one sets values and states. The blocks apply no points: what comes of them
/// would hang on who is first, and the rest of the run with it.
void EditWhileAudioRuns (StripLife& life, Scene& scene)
{
    std::vector<AudioCall> calls (1 + scene.chance.Below (20));
    for (AudioCall& call : calls)
    {
        call = MakeAudioCall (scene.chance, life);
        call.hasInputChanges = false;
    }
    std::exception_ptr audioFailure;
    std::exception_ptr failure;
    std::thread audio (
        [&]
        {
            try
            {
                for (AudioCall& call : calls)
                    Run (life, call, scene.tally);
            }
            catch (...)
            {
                audioFailure = std::current_exception ();
            }
        });
    try
    {
        Edit (life, scene);
        life.Controller ().setParamNormalized (kMorph, scene.chance.Unit ());
        if (scene.chance.OneIn (2))
            SaveAndRestore (life, scene);
        ReadEverything (life, scene);
    }
    catch (...)
    {
        failure = std::current_exception ();
    }
    audio.join ();
    if (audioFailure || failure)
        std::rethrow_exception (audioFailure ? audioFailure : failure);
}

struct WeightedAct
{
    std::size_t weight;
    void (*act) (StripLife&, Scene&);
};

constexpr std::array kActs{
    WeightedAct{ 40, PlayBlocks },        WeightedAct{ 14, Edit },          WeightedAct{ 6, SweepMorph },
    WeightedAct{ 5, ReadEverything },     WeightedAct{ 6, SaveAndRestore }, WeightedAct{ 4, LoadDamage },
    WeightedAct{ 4, ChangeHandler },      WeightedAct{ 3, FireTimers },     WeightedAct{ 6, SetUpAnew },
    WeightedAct{ 4, SwitchOnOrOff },      WeightedAct{ 3, Reconnect },      WeightedAct{ 1, StartAgain },
    WeightedAct{ 2, EditWhileAudioRuns },
};

constexpr std::size_t kAllWeights = []
{
    std::size_t sum = 0;
    for (const auto& [weight, act] : kActs)
        sum += weight;
    return sum;
}();

} // namespace

void Act (StripLife& life, Scene& scene)
{
    std::size_t place = scene.chance.Below (kAllWeights);
    auto chosen = kActs.begin ();
    for (; place >= chosen->weight; ++chosen)
        place -= chosen->weight;
    chosen->act (life, scene);
    life.CheckEdits ();
}

} // namespace tessaly::soak
