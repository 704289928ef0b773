// The bundle as a host hears it against the model, sample by sample and meter by meter. Everything random is seeded.

#include "bundle_vs_model.h"
#include "recording.h"

#include <doctest/doctest.h>

#include <array>
#include <numeric>
#include <random>

namespace
{

using namespace tessaly::model;

constexpr double kAllowedDifference = 1e-6; // of full scale
constexpr int kLargestBlock = 4096;
// The lowest with the quickest times and with bands beyond the spectrum, and with fades that are no whole samples.
constexpr std::array kRatesHz{ 11025.0, 32000.0, 44100.0, 48000.0, 88200.0, 96000.0, 192000.0 };

class Dice : public std::mt19937
{
public:
    double Between (double low, double high) { return std::uniform_real_distribution (low, high) (*this); }
    std::size_t Below (std::size_t end) { return std::uniform_int_distribution<std::size_t> (0, end - 1) (*this); }
    bool Once (double probability) { return Between (0.0, 1.0) < probability; }

    template <typename Values>
    auto Of (const Values& values)
    {
        return values[Below (std::size (values))];
    }
};

/// @param material  0 noise beyond full scale, 1 bursts of it, 2 drums, at their own speed at any rate
std::vector<float> Signal (std::size_t material, double rateHz, double seconds, Dice& dice)
{
    static const std::vector<float> drums = tessaly::test::Load (tessaly::test::kDrums).Channel (0).samples;
    std::vector<float> signal (static_cast<std::size_t> (seconds * rateHz));
    for (std::size_t i = 0; i < signal.size (); ++i)
        if (material == 2)
            signal[i] = drums[i % drums.size ()];
        else if (material == 0 || std::fmod (static_cast<double> (i) / rateHz, 0.3) < 0.1)
            signal[i] = static_cast<float> (dice.Between (-1.5, 1.5));
    return signal;
}

/// Whole steps, the ends of the range and anything between, as hosts and users send it; and what turns a switch over,
/// and "Drive" where the offset fades out, more often than that.
Change AnyChange (Dice& dice, unsigned parameter)
{
    const double value = dice.Between (0.0, 1.0);
    if (parameter == kDrive && dice.Once (0.5))
        return { parameter, 0.2 * value };
    if ((parameter == kEqualizerBypass || parameter == kCompressorBypass || parameter == kBypass) && dice.Once (0.5))
        return { parameter, dice.Of (std::array{ 0.49, 0.5 }) };
    return { parameter, dice.Of (std::array{ value, value, std::round (value * 20.0) / 20.0, std::round (value) }) };
}

/// Some parameters, each but once; a parameter's second value follows its first.
std::vector<Change> AnyChanges (Dice& dice)
{
    std::array<unsigned, kParameterCount> order{};
    std::iota (order.begin (), order.end (), 0u);
    std::shuffle (order.begin (), order.end (), dice);
    std::vector<Change> changes;
    for (const unsigned parameter : std::span (order).first (1 + dice.Below (5)))
        for (int j = dice.Once (0.2) ? 1 : 0; j >= 0; --j)
            changes.push_back (AnyChange (dice, parameter));
    return changes;
}

class RandomPlay
{
protected:
    tessaly::host::NamedHost host{ "model_tests" };
    tessaly::host::Bundle bundle{ TESSALY_BUNDLE };
    Dice dice;

    /// Plays the signal while parameters move on both roads, in all some every 15 ms, so that fades meet and also end.
    /// @param blockSize  0 for another size each time
    void Play (BundleVsModel& both, double rateHz, std::span<const float> signal, std::size_t blockSize)
    {
        constexpr std::size_t sizes[]{ 1, 2, 13, 64, 100, 127, 441, 512, 1000, 1023, 2048, kLargestBlock };
        while (!signal.empty ())
        {
            const std::size_t size = std::min (blockSize > 0 ? blockSize : dice.Of (sizes), signal.size ());
            const double probability = std::min (static_cast<double> (size) / (0.015 * rateHz), 0.8);
            if (dice.Once (probability))
                for (const Change& change : AnyChanges (dice))
                    both.SetFromController (change);
            both.Process (signal.first (size), dice.Once (probability) ? AnyChanges (dice) : std::vector<Change>{});
            signal = signal.subspan (size);
        }
    }

    static void CheckEqual (BundleVsModel& both)
    {
        both.CompareParameters ();
        CHECK (both.largestDifference <= kAllowedDifference);
        CHECK (both.unequalMeters == 0);
        CHECK (both.unequalParameters == 0);
        CHECK (both.loudestSample > 0.1);
    }
};

} // namespace

TEST_CASE_FIXTURE (RandomPlay, "silence sounds as the noise of a generator that starts alike in every instance")
{
    for (int instance = 0; instance < 2; ++instance)
    {
        BundleVsModel both (bundle, host);
        both.Start (44100.0, 1000, Mode::kOffline);
        for (int i = 0; i < 20; ++i)
            both.Process (std::vector<float> (1000, 0.0f));
        CHECK (both.loudestSample > 1e-13);
        CHECK (both.largestDifference < 1e-6 * both.loudestSample);
    }
}

TEST_CASE_FIXTURE (RandomPlay, "sound and meters are equal at every rate and block size")
{
    std::size_t session = 0;
    for (const double rateHz : kRatesHz)
        for (const std::size_t blockSize : std::initializer_list<std::size_t>{ 1, 17, 64, 441, 1024, kLargestBlock, 0 })
        {
            CAPTURE (rateHz);
            CAPTURE (blockSize);
            BundleVsModel both (bundle, host);
            both.Start (rateHz, kLargestBlock, session % 2 == 0 ? Mode::kOffline : Mode::kRealtime);
            Play (both, rateHz, Signal (session++ % 3, rateHz, 1.5, dice), blockSize);
            CheckEqual (both);
        }
}

TEST_CASE_FIXTURE (RandomPlay, "stops, restarts, new rates, new modes and empty blocks keep bundle and model in step")
{
    BundleVsModel both (bundle, host);
    for (int i = 0; i < 60; ++i)
    {
        const double rateHz = dice.Of (kRatesHz);
        both.SetActive (false);
        both.SetFromController (AnyChange (dice, static_cast<unsigned> (dice.Below (kParameterCount))));
        both.Start (rateHz, kLargestBlock, dice.Of (std::array{ Mode::kRealtime, Mode::kPrefetch, Mode::kOffline }));
        if (dice.Once (0.3))
            both.Process ({}, AnyChanges (dice));
        if (dice.Once (0.3)) // and once more in the middle of fades
        {
            both.SetFromController (AnyChange (dice, kMorph));
            both.Process (Signal (0, rateHz, 0.004, dice));
            both.SetActive (false);
            both.SetActive (true);
        }
        both.Process (Signal (0, rateHz, 0.005, dice), AnyChanges (dice));
        Play (both, rateHz, Signal (dice.Below (3), rateHz, 0.05, dice), 0);
    }
    CheckEqual (both);
}
