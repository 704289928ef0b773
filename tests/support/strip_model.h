/// The sample path of the strip, one sample at a time and formula by formula: noise, compressor, makeup, Total Gain,
/// three bands, soft bypass, two meters. Shares nothing with the engine but the value tables.
#pragma once

#include "filter_model.h"
#include "value_tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>

namespace tessaly::model
{

// clang-format off
enum Parameter : unsigned
{
    kDrive, kAttack, kRelease, kRatio, kKnee, kOffset, kMakeup, kSideHz, kSideDb, kSideQ, kHighHz, kHighDb,
    kMidHz, kMidDb, kMidQ, kLowHz, kLowDb, kTotalDb, kEqualizerBypass, kCompressorBypass, kMorph, kBypass,
    kParameterCount
};
// clang-format on

/// The example generator of the C standard (7.22.2 in C11), 15 bits, seed 1; each strip has its own.
struct ExampleRand
{
    std::uint32_t next = 1;

    int Next () ///< 0 to 32767
    {
        next = next * 1103515245u + 12345u;
        return static_cast<int> (next / 65536u % 32768u);
    }
};

/// Follows its target with a time constant of 10 ms, and by a small fixed step that makes it arrive.
struct Glide
{
    double value = 0.0, target = 0.0;

    double Next (double coefficient)
    {
        const double d = (target - value) * coefficient;
        return value = d > 0.0 ? std::min (value + d + 0.00000012, target) : std::max (value + d - 0.00000012, target);
    }
};

/// Rises by a square law, falls at a constant number of decibels a second and lands softly. Levels in log10 units.
struct Detector
{
    double value = -1.5;

    /// @param attack, release  1 / (time in samples)
    double Next (double level, double attack, double release)
    {
        const double distance = level - value;
        const double a = attack * 6.25;
        const double r = std::sqrt (0.00018 / a);
        const double s = std::max (r + (distance > 0.0 ? distance : 0.125 * distance), 0.0);
        const double rise = std::min (a * s * s - 0.00018, 0.925 * distance);
        const double fall = std::max (8.0 * (a * s * s - 0.00018), -0.4 * release);
        return value += distance > 0.0 ? rise : fall;
    }
};

/// Holds the peak of a block, and falls by a factor a block.
struct PeakFollower
{
    double peak = 0.0, held = 0.0;

    /// Only the positive half of the wave counts, and what lies below -1.
    void Feed (double v) { peak = std::max (peak, v < -1.0 ? -v : v); }
    void EndBlock ()
    {
        held = peak > held ? peak : held + 0.08 * (peak - held);
        peak = 0.0;
    }
};

enum Knee
{
    kSoft,
    kMiddle,
    kHard
};

/// The value of a step; 0 outside of the table.
inline double At (std::span<const double> table, int step)
{
    const auto index = static_cast<std::size_t> (step);
    return index < table.size () ? table[index] : 0.0;
}

inline double GainDb (int step)
{
    return step * 0.1 - 18.0;
}

/// The level above the knee, a parabola within it, nothing below it; log10 units.
inline double ShapedLevel (double level, int knee)
{
    const double width = knee == kSoft ? 1.3 : knee == kMiddle ? 0.5 : 0.0;
    const double bend = knee == kSoft ? 0.19231 : 0.5;
    if (level > width)
        return level;
    if (level > -width)
        return bend * (level + width) * (level + width);
    return 0.0;
}

constexpr auto kReductionDb = std::to_array<double> (
    { -24.0,  -22.0, -20.0,  -18.0,  -17.0, -16.0,  -15.0,  -14.0,  -13.0,  -12.0,  -11.0,  -10.0, -9.0,
      -8.5,   -8.0,  -7.5,   -7.0,   -6.5,  -6.0,   -5.666, -5.333, -5.0,   -4.666, -4.333, -4.0,  -3.666,
      -3.333, -3.0,  -2.666, -2.333, -2.0,  -1.666, -1.333, -1.0,   -0.666, -0.333, 0.0 });
constexpr auto kOutputDb = std::to_array<double> (
    { -63.0, -60.0, -56.0, -53.0, -50.0, -46.0, -43.0, -40.0, -36.0, -33.0, -30.0, -28.0, -26.0, -24.0, -22.0, -20.0,
      -18.0, -17.0, -16.0, -15.0, -14.0, -13.0, -12.0, -11.0, -10.0, -9.0,  -8.0,  -7.0,  -6.0,  -5.0,  -4.0,  -3.0 });

/// The scales hold their levels with ten decimals.
inline double TenDecimals (double db)
{
    return std::round (std::pow (10.0, db / 20.0) * 1e10) / 1e10;
}

/// How many levels of the scale are at or below v.
inline int CountAtOrBelow (std::span<const double> scaleDb, double v)
{
    return static_cast<int> (std::ranges::count_if (scaleDb, [v] (double db) { return TenDecimals (db) <= v; }));
}

inline double ReductionPosition (double v)
{
    return std::max (CountAtOrBelow (kReductionDb, v < 1.0 ? v + 0.001 : v) - 1, 0) / 36.0;
}

/// The scale ends just below full scale, where two lamps light up at nearly one level.
inline double OutputPosition (double level)
{
    constexpr double kTop = 0.9999999999;
    const double v = level + 0.0001;
    return (CountAtOrBelow (kOutputDb, v) + (v >= kTop ? 1 : 0) + (v > kTop ? 1 : 0)) / 34.0;
}

class StripModel
{
public:
    StripModel () { Resume (); }

    void SetRate (double hz)
    {
        rateHz = hz;
        Resume ();
    }

    void Resume ()
    {
        FollowSteps ();
        sideChainHighPass.c = HighPass (rateHz, 10.0);
        glideCoefficient = 1.0 - std::exp (-1.0 / rateHz / 0.01);
        for (const unsigned parameter : { kSideHz, kHighHz, kMidHz, kLowHz })
            DesignBandOf (parameter);
        for (FadingSection* band : { &sideChainPeak, &low, &mid, &high })
            band->StartUp (rateHz);
    }

    void Suspend ()
    {
        reductionMeter.held = outputMeter.held = 0.0;
        readings = {};
    }

    /// @param plain  in steps; a fraction is cut off
    void Set (unsigned parameter, float plain)
    {
        steps[parameter] = static_cast<int> (plain);
        FollowSteps ();
        DesignBandOf (parameter);
    }

    /// At least one sample.
    void Run (std::span<const float> input, std::span<float> output)
    {
        for (std::size_t i = 0; i < input.size (); ++i)
        {
            output[i] = static_cast<float> (Sample (input[i]));
            outputMeter.Feed (output[i]);
        }
        reductionMeter.EndBlock ();
        outputMeter.EndBlock ();
        const float gain = std::clamp (static_cast<float> (1.0 / reductionMeter.held), 0.0f, 1.0f);
        readings = { static_cast<float> (1.0 - ReductionPosition (gain)),
                     static_cast<float> (OutputPosition (outputMeter.held)) };
    }

    const std::array<float, 2>& Readings () const { return readings; } ///< gain reduction and output, 0 to 1

private:
    /// Does nothing for a parameter of no band.
    void DesignBandOf (unsigned parameter)
    {
        const auto hz = [this] (Parameter p) { return At (frequencyHz, steps[p]); };
        const auto db = [this] (Parameter p) { return GainDb (steps[p]); };
        if (parameter >= kSideHz && parameter <= kSideQ)
            sideChainPeak.Design (Peak (rateHz, hz (kSideHz), db (kSideDb), At (qValue, steps[kSideQ])));
        else if (parameter >= kHighHz && parameter <= kHighDb)
            high.Design (HighShelf (rateHz, hz (kHighHz), db (kHighDb)));
        else if (parameter >= kMidHz && parameter <= kMidQ)
            mid.Design (Peak (rateHz, hz (kMidHz), db (kMidDb), At (qValue, steps[kMidQ])));
        else if (parameter >= kLowHz && parameter <= kLowDb)
            low.Design (LowShelf (rateHz, hz (kLowHz), db (kLowDb)));
    }

    /// Everything but the filters. A negative offset fades out as the threshold of "Drive" nears 0 dB.
    void FollowSteps ()
    {
        const double driveDb = -steps[kDrive] * 0.2;
        const double offsetDb = steps[kOffset] * 0.2 - 20.0;
        const bool fadesOut = offsetDb < 0.0 && driveDb >= -6.2;
        const double sumDb = fadesOut ? (offsetDb + driveDb) * driveDb / -6.2 : driveDb + offsetDb;
        thresholdDb = std::clamp (sumDb, -54.0, 0.0);

        attack = std::min (1.0 / (At (attackMs, steps[kAttack]) * 0.001 * 44100.0) * 44100.0 / rateHz, 1.0);
        release = std::min (1.0 / (At (releaseMs, steps[kRelease]) * 0.001 * 44100.0) * 44100.0 / rateHz, 1.0);
        slope.target = 1.0 - 1.0 / At (ratioValue, steps[kRatio]);
        makeup.target = std::pow (10.0, -slope.target * thresholdDb * (steps[kMakeup] * 0.005) / 20.0);
        totalGain.target = std::pow (10.0, GainDb (steps[kTotalDb]) / 20.0);
        bypass.target = steps[kBypass] == 0 ? 0.0 : 1.0;
    }

    double CompressorGain (double x)
    {
        const double threshold = std::pow (10.0, thresholdDb / 20.0);
        const double u = std::abs (sideChainPeak.Process (sideChainHighPass.Process (x)) / threshold);
        const double level = detector.Next (u >= 0.0316 ? std::log10 (u) : -1.5, attack, release);
        slope.Next (glideCoefficient);
        return std::pow (10.0, -slope.value * ShapedLevel (level, thresholdDb == 0.0 ? kHard : steps[kKnee]));
    }

    double Sample (double input)
    {
        const double dry = input + (noise.Next () - 16384) * 1e-16;
        double y = dry;
        double reduction = 1.0;
        if (steps[kCompressorBypass] == 0)
        {
            makeup.Next (glideCoefficient);
            const double gain = CompressorGain (dry);
            reduction = 1.0 / gain;
            y = dry * gain * makeup.value;
        }
        reductionMeter.Feed (reduction);
        y *= totalGain.Next (glideCoefficient);
        if (steps[kEqualizerBypass] == 0)
            y = high.Process (mid.Process (low.Process (y)));
        bypass.Next (glideCoefficient);
        return y * (1.0 - bypass.value) + bypass.value * dry;
    }

    std::array<int, kParameterCount> steps{};
    double rateHz = 44100.0;
    ExampleRand noise;
    Section sideChainHighPass;
    FadingSection sideChainPeak, low, mid, high;
    Detector detector; // of the level over the threshold
    Glide makeup, slope, totalGain{ 1.0, 1.0 }, bypass;
    PeakFollower reductionMeter, outputMeter;
    std::array<float, 2> readings{};

    double thresholdDb = 0.0, attack = 0.0, release = 0.0, glideCoefficient = 0.0; // the rates per sample
};

} // namespace tessaly::model
