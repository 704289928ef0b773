/// The sample path of the strip, one sample at a time and formula by formula: noise, compressor, makeup, Total Gain,
/// three bands, soft bypass, two meters. Shares nothing with the engine but the value tables.
#pragma once

#include "filter_model.h"

#include <array>
#include <cstdint>

namespace tessaly::model
{

// clang-format off
enum Parameter
{
    kDrive, kAttack, kRelease, kRatio, kKnee, kOffset, kMakeup, kSideHz, kSideDb, kSideQ, kHighHz, kHighDb,
    kMidHz, kMidDb, kMidQ, kLowHz, kLowDb, kTotalDb, kEqualizerBypass, kCompressorBypass, kMorph, kBypass,
    kParameterCount
};
// clang-format on

/// The example generator of the C standard (7.22.2 in C11), 15 bits, seed 1; each strip has its own.
class ExampleRand
{
public:
    int Next (); ///< 0 to 32767

private:
    std::uint32_t next = 1;
};

/// Follows its target with a time constant of 10 ms, and by a small fixed step that makes it arrive.
struct Glide
{
    double value = 0.0, target = 0.0;

    double Next (double coefficient);
};

/// Holds the peak of a block, and falls by a factor a block.
struct PeakFollower
{
    double peak = 0.0, held = 0.0, value = 0.0;

    void Feed (double v);
    void EndBlock (); ///< after at least one sample
};

class StripModel
{
public:
    StripModel () { Resume (); }

    void SetRate (double hz);
    void Resume ();
    void Suspend ();
    /// @param parameter  0 to 21
    /// @param plain      steps; a fraction is cut off
    void Set (int parameter, float plain);
    void Run (const float* input, float* output, int sampleCount);

    double reductionReading = 0.0, outputReading = 0.0; // 0 to 1, set by Run and Suspend

private:
    Coefficients DesignOf (const FadingSection& band) const;
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

    double thresholdDb = 0.0, attack = 0.0, release = 0.0, glideCoefficient = 0.0; // the rates per sample
    double detector = -1.5;                                                        // log10 of level over threshold
};

} // namespace tessaly::model
