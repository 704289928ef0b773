#include "equalizer_design.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace tessaly
{

namespace
{

constexpr BiquadCoefs kPassThrough{ 1.0, 0.0, 0.0, 0.0, 0.0 };

bool isBeyondSpectrum (double sampleRate, double f)
{
    constexpr double kLowestUncheckedRate = 44100;
    constexpr double kMarginHz = 10;
    return sampleRate < kLowestUncheckedRate && f > sampleRate * 0.5 - kMarginHz;
}

double linearGain (double gainDb)
{
    return std::pow (10.0, gainDb / 20);
}

double prewarped (double sampleRate, double f)
{
    return std::tan (std::numbers::pi * f / sampleRate);
}

/// k = a - b log2 (q) - c f, for the rates below `rateEnd` and the frequencies above `frequencyLimit`, both Hz.
/// Fitted by hand.
struct QCorrection
{
    double rateEnd;
    double frequencyLimit;
    double a;
    double b;
    double c;
};

constexpr std::array<QCorrection, 4> kQCorrections{ {
    { 48000, 2000, 1.25513, 0.0301, 0.00004817 },
    { 88200, 2000, 1.25686, 0.02143, 0.00004103 },
    { 96000, 4000, 1.29486, 0.0317, 0.00002462 },
    { std::numeric_limits<double>::infinity (), 4000, 1.21531, 0.02382, 0.00002004 },
} };

} // namespace

BiquadCoefs designLowShelf (double sampleRate, double f, double gainDb, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double t = prewarped (sampleRate, f);
    const double M = linearGain (maxDb);
    const double T = std::tan (std::atan (std::pow (M, slope) * t));
    const double G = linearGain (std::abs (gainDb));
    const double W = std::pow (G, 1 - slope) * T;
    if (gainDb >= 0)
    {
        const double D = W + G;
        return { (1 + W) * G / D, -(1 - W) * G / D, 0.0, (G - W) / D, 0.0 };
    }
    const double V = W / G;
    const double D = 1 + W;
    return { (1 + V) / D, -(1 - V) / D, 0.0, (1 - W) / D, 0.0 };
}

BiquadCoefs designHighShelf (double sampleRate, double f, double gainDb, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double t = prewarped (sampleRate, f);
    const double M = linearGain (maxDb);
    const double T = std::tan (std::atan (std::pow (1 / M, slope) * t));
    const double G = linearGain (gainDb); // below 1 for a cut
    if (gainDb >= 0)
    {
        const double W = std::pow (G, slope - 1) * T;
        const double X = W * G;
        const double D = 1 + X;
        return { (1 + W) * G / D, -(1 - W) * G / D, 0.0, (1 - X) / D, 0.0 };
    }
    const double W = std::pow (G, 1 - slope) * T;
    const double D = 1 + W;
    return { (W + G) / D, (W - G) / D, 0.0, (1 - W) / D, 0.0 };
}

double correctedQ (double sampleRate, double f, double q)
{
    constexpr double kLog2e = 1.4426950408889634;
    constexpr double kLowestQ = 0.1;
    const QCorrection& row = *std::find_if (kQCorrections.begin (), kQCorrections.end () - 1,
                                            [=] (const QCorrection& r) { return sampleRate < r.rateEnd; });
    if (f <= row.frequencyLimit)
        return q;
    const double k = row.a - row.b * (std::log (q) * kLog2e) - row.c * f;
    return k > 1 ? q : std::max (k * q, kLowestQ);
}

BiquadCoefs designPeaking (double sampleRate, double f, double gainDb, double q, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double t = prewarped (sampleRate, f);
    const double A = linearGain (std::abs (gainDb) - maxDb);
    const double qi = (1 / correctedQ (sampleRate, f, q)) / std::pow (A, slope);
    const double G = linearGain (std::abs (gainDb));
    const double w = qi * t;
    const double T = 1 + t * t;
    const double U = t * t - 1;
    if (gainDb >= 0)
    {
        const double D = T + w;
        return { (T + G * w) / D, 2 * U / D, (T - G * w) / D, -2 * U / D, (w - T) / D };
    }
    const double D = T + G * w;
    return { (T + w) / D, 2 * U / D, (T - w) / D, -2 * U / D, (G * w - T) / D };
}

} // namespace tessaly
