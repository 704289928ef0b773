// The bundle as a host hears it against the model, sample by sample and meter by meter. Everything random is seeded.

#include "duet.h"

#include <doctest/doctest.h>
#include <sndfile.hh>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>
#include <span>
#include <vector>

namespace
{

using namespace tessaly::model;

constexpr double kAllowedDifference = 1e-6; // of full scale
constexpr int kLargestBlock = 4096;
constexpr std::array kRatesHz{ 32000.0, 44100.0, 48000.0, 88200.0, 96000.0, 192000.0 };

class Dice : public std::mt19937
{
public:
    using std::mt19937::mt19937;

    double Between (double low, double high)
    {
        // Not std::uniform_real_distribution, which differs between libraries.
        return low + (high - low) * (static_cast<double> ((*this) ()) / 4294967296.0);
    }
    int Upto (int last) { return static_cast<int> (Between (0.0, last + 1.0)); }
    bool Once (double probability) { return Between (0.0, 1.0) < probability; }
};

enum class Material
{
    kNoise,
    kSine,
    kSteps,
    kBursts,
    kRecording,
    kCount
};

/// A drum loop, at its own speed at any rate.
const std::vector<float>& Recording ()
{
    static const std::vector<float> left = []
    {
        SndfileHandle file (TESSALY_RECORDING);
        std::vector<float> frames (static_cast<std::size_t> (file.frames () * file.channels ()));
        REQUIRE (file.readf (frames.data (), file.frames ()) > 44100);
        std::vector<float> channel;
        for (std::size_t i = 0; i < frames.size (); i += static_cast<std::size_t> (file.channels ()))
            channel.push_back (frames[i]);
        return channel;
    }();
    return left;
}

std::vector<float> Signal (Material material, double rateHz, std::size_t count, Dice& dice)
{
    std::vector<float> signal (count);
    double level = 0.0;
    for (std::size_t i = 0; i < count; ++i)
    {
        const auto second = static_cast<double> (i) / rateHz;
        switch (material)
        {
        case Material::kNoise:
            signal[i] = static_cast<float> (dice.Between (-1.0, 1.0));
            break;
        case Material::kSine: // swells once, and beyond full scale
            signal[i] =
                static_cast<float> (1.2 * std::sin (3.0 * second) * std::sin (2.0 * std::numbers::pi * 997.0 * second));
            break;
        case Material::kSteps:
            if (i % 700 == 0)
                level = dice.Between (-1.5, 1.5);
            signal[i] = static_cast<float> (level);
            break;
        case Material::kBursts: // loud, then silent
            signal[i] = std::fmod (second, 0.3) < 0.1 ? static_cast<float> (dice.Between (-1.0, 1.0)) : 0.0f;
            break;
        default:
            signal[i] = Recording ()[i % Recording ().size ()];
        }
    }
    return signal;
}

/// Whole steps, the ends of the range and anything between, as hosts and users send it.
Change AnyChange (Dice& dice, int parameter)
{
    const double value = dice.Between (0.0, 1.0);
    const int kind = dice.Upto (9);
    return { parameter, kind == 0 ? 0.0 : kind == 1 ? 1.0 : kind < 5 ? std::round (value * 20.0) / 20.0 : value };
}

/// Some parameters, each but once; a parameter's second value follows its first.
std::vector<Change> AnyChanges (Dice& dice)
{
    std::array<int, kParameterCount> order{};
    std::iota (order.begin (), order.end (), 0);
    std::vector<Change> changes;
    const auto count = static_cast<std::size_t> (1 + dice.Upto (4));
    for (std::size_t i = 0; i < count; ++i)
    {
        std::swap (order[i],
                   order[i + static_cast<std::size_t> (dice.Upto (kParameterCount - 1 - static_cast<int> (i)))]);
        for (int j = dice.Once (0.2) ? 1 : 0; j >= 0; --j)
            changes.push_back (AnyChange (dice, order[i]));
    }
    return changes;
}

/// @param blockSize  0 for another size each time
std::size_t NextBlock (Dice& dice, int blockSize, std::size_t left)
{
    constexpr std::array sizes{ 1, 2, 3, 13, 64, 100, 127, 441, 480, 512, 1000, 1023, 2048, 4095, kLargestBlock };
    const int size = blockSize > 0 ? blockSize : sizes[static_cast<std::size_t> (dice.Upto (sizes.size () - 1))];
    return std::min (static_cast<std::size_t> (size), left);
}

/// Plays the signal while parameters move on both roads, in all some every 15 ms, so that fades meet and also end.
void Play (Duet& duet, Dice& dice, double rateHz, std::span<const float> signal, int blockSize)
{
    while (!signal.empty ())
    {
        const std::size_t size = NextBlock (dice, blockSize, signal.size ());
        const double probability = std::min (static_cast<double> (size) / (0.015 * rateHz), 0.8);
        std::vector<Change> queue;
        if (dice.Once (probability))
            for (const Change& change : AnyChanges (dice))
                duet.SetFromController (change);
        if (dice.Once (probability))
            queue = AnyChanges (dice);
        duet.Process (signal.first (size), queue);
        signal = signal.subspan (size);
    }
}

class BundleAndModel
{
public:
    ~BundleAndModel () { MESSAGE (samples << " samples, largest difference " << largestDifference); }

protected:
    tessaly::host::NamedHost host{ "model_tests" };
    tessaly::host::Bundle bundle{ TESSALY_BUNDLE };
    Dice dice{ 20261122 };
    double largestDifference = 0.0;
    std::size_t samples = 0;

    std::vector<float> Any (Material material, double rateHz, double seconds)
    {
        return Signal (material, rateHz, static_cast<std::size_t> (seconds * rateHz), dice);
    }

    void CheckEqual (Duet& duet)
    {
        duet.CompareParameters ();
        CHECK (duet.largestDifference <= kAllowedDifference);
        CHECK (duet.unequalMeters == 0);
        CHECK (duet.unequalParameters == 0);
        CHECK (duet.loudestSample > 0.1);
        largestDifference = std::max (largestDifference, duet.largestDifference);
        samples += duet.samples;
    }
};

} // namespace

TEST_CASE_FIXTURE (BundleAndModel, "a fresh instance sounds as the first key point, from gliding gains on")
{
    Duet duet (bundle, host);
    duet.Start (44100.0, 512, Mode::kRealtime);
    for (Material material : { Material::kRecording, Material::kSine })
    {
        const std::vector<float> signal = Any (material, 44100.0, 0.5);
        for (std::size_t i = 0; i + 512 <= signal.size (); i += 512)
            duet.Process (std::span (signal).subspan (i, 512));
    }
    CheckEqual (duet);
}

TEST_CASE_FIXTURE (BundleAndModel, "silence sounds as the noise of a generator that starts alike in every instance")
{
    for (int instance = 0; instance < 2; ++instance)
    {
        Duet duet (bundle, host);
        duet.Start (44100.0, 1000, Mode::kOffline);
        for (int i = 0; i < 20; ++i)
            duet.Process (std::vector<float> (1000, 0.0f));
        CHECK (duet.loudestSample > 1e-13);
        CHECK (duet.largestDifference < 1e-6 * duet.loudestSample);
    }
}

TEST_CASE_FIXTURE (BundleAndModel, "every rate, block size and input, while every parameter moves on both roads")
{
    int session = 0;
    for (double rateHz : kRatesHz)
        for (int blockSize : { 1, 17, 64, 441, 1024, kLargestBlock, 0 })
        {
            CAPTURE (rateHz);
            CAPTURE (blockSize);
            Duet duet (bundle, host);
            duet.Start (rateHz, kLargestBlock, session % 2 == 0 ? Mode::kOffline : Mode::kRealtime);
            const auto material = static_cast<Material> (session++ % static_cast<int> (Material::kCount));
            Play (duet, dice, rateHz, Any (material, rateHz, 1.5), blockSize);
            CheckEqual (duet);
        }
}

TEST_CASE_FIXTURE (BundleAndModel, "the morph sweeps up and down on both roads")
{
    for (Mode mode : { Mode::kRealtime, Mode::kOffline })
    {
        Duet duet (bundle, host);
        duet.Start (48000.0, 800, mode);
        const std::vector<float> signal = Any (Material::kRecording, 48000.0, 1.0);
        for (int i = 0; i <= 2 * 120; ++i)
        {
            const std::vector<Change> step{ { kMorph, (i <= 120 ? i : 240 - i) / 120.0 } };
            if (mode == Mode::kRealtime)
                duet.SetFromController (step[0]);
            // Shorter than a fade at first, so that designs wait; long enough to hear each later.
            const std::size_t size = i < 60 ? 150 : 800;
            const std::size_t at = static_cast<std::size_t> (i) * 177;
            duet.Process (std::span (signal).subspan (at % (signal.size () - size), size),
                          mode == Mode::kOffline ? std::span<const Change> (step) : std::span<const Change> ());
        }
        CheckEqual (duet);
    }
}

TEST_CASE_FIXTURE (BundleAndModel, "thresholds near 0 dB, offsets of both signs and every knee")
{
    Duet duet (bundle, host);
    duet.Start (44100.0, 500, Mode::kRealtime);
    for (int i = 0; i < 400; ++i)
    {
        duet.SetFromController ({ kDrive, dice.Upto (40) / 200.0 });
        for (int parameter : { kRatio, kKnee, kOffset, kMakeup })
            if (dice.Once (0.5))
                duet.SetFromController (AnyChange (dice, parameter));
        duet.Process (Any (Material::kNoise, 44100.0, 0.01));
    }
    CheckEqual (duet);
}

TEST_CASE_FIXTURE (BundleAndModel, "the three bypass switches work on each other in every order")
{
    Duet duet (bundle, host);
    duet.Start (44100.0, 1000, Mode::kRealtime);
    for (int i = 0; i < 300; ++i)
    {
        const int which =
            std::array{ kEqualizerBypass, kCompressorBypass, kBypass }[static_cast<std::size_t> (dice.Upto (2))];
        duet.SetFromController ({ which, std::array{ 0.0, 0.49, 0.5, 1.0 }[static_cast<std::size_t> (dice.Upto (3))] });
        if (dice.Once (0.3)) // a design that waits while its band is off
            duet.SetFromController (AnyChange (dice, dice.Upto (17)));
        duet.Process (Any (Material::kSteps, 44100.0, dice.Between (0.001, 0.02)));
    }
    CheckEqual (duet);
}

TEST_CASE_FIXTURE (BundleAndModel,
                   "stops, restarts, new rates, new modes and empty blocks keep bundle and model in step")
{
    Duet duet (bundle, host);
    double rateHz = 48000.0;
    for (int i = 0; i < 60; ++i)
    {
        if (dice.Once (0.5))
            rateHz = kRatesHz[static_cast<std::size_t> (dice.Upto (kRatesHz.size () - 1))];
        duet.Stop ();
        if (dice.Once (0.3))
            duet.SetFromController (AnyChange (dice, dice.Upto (kParameterCount - 1)));
        duet.Start (
            rateHz, kLargestBlock,
            std::array{ Mode::kRealtime, Mode::kPrefetch, Mode::kOffline }[static_cast<std::size_t> (dice.Upto (2))]);
        if (dice.Once (0.3))
            duet.Process ({}, AnyChanges (dice));
        if (dice.Once (0.3)) // and once more in the middle of fades
        {
            duet.SetFromController (AnyChange (dice, kMorph));
            duet.Process (Any (Material::kSteps, rateHz, 0.004));
            duet.Stop ();
            duet.Resume ();
        }
        duet.Process (Any (Material::kNoise, rateHz, 0.005), AnyChanges (dice));
        const auto material = static_cast<Material> (dice.Upto (static_cast<int> (Material::kCount) - 1));
        Play (duet, dice, rateHz, Any (material, rateHz, 0.05), 0);
        if (dice.Once (0.3))
            duet.Process ({});
    }
    CheckEqual (duet);
}
