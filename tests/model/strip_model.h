/// The sample path of the strip, one sample at a time and formula by formula: noise, compressor, makeup, Total Gain,
/// three bands, soft bypass, two meters. Shares nothing with the engine but the value tables.
#pragma once

#include "filter_model.h"

#include <algorithm>
#include <array>
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

class StripModel
{
public:
    StripModel () { Resume (); }

    void SetRate (double hz);
    void Resume ();
    void Suspend ();
    void Set (unsigned parameter, float plain);                        ///< plain: steps, a fraction is cut off
    void Run (std::span<const float> input, std::span<float> output);  ///< at least one sample
    const std::array<float, 2>& Readings () const { return readings; } ///< gain reduction and output, 0 to 1

private:
    void DesignBandOf (unsigned parameter);
    void FollowSteps ();
    double Detect (double u);
    double CompressorGain (double x);
    double Sample (double input);

    std::array<int, kParameterCount> steps{};
    double rateHz = 44100.0;
    ExampleRand noise;
    Section sideChainHighPass;
    FadingSection sideChainPeak, low, mid, high;
    Glide makeup, slope, totalGain{ 1.0, 1.0 }, bypass;
    PeakFollower reductionMeter, outputMeter;
    std::array<float, 2> readings{};

    double thresholdDb = 0.0, attack = 0.0, release = 0.0, glideCoefficient = 0.0; // the rates per sample
    double detector = -1.5;                                                        // log10 of level over threshold
};

} // namespace tessaly::model
