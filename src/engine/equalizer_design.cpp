#include "equalizer_design.h"

#include "db_to_gain.h"

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

/// Numerator or denominator of a prototype, s2 s^2 + s1 s + s0.
struct Polynomial
{
    double s2 = 0.0;
    double s1 = 0.0;
    double s0 = 0.0;
};

BiquadCoefs firstOrder (const Polynomial& n, const Polynomial& d)
{
    const double D = d.s1 + d.s0;
    return { (n.s1 + n.s0) / D, (n.s0 - n.s1) / D, 0.0, (d.s1 - d.s0) / D, 0.0 };
}

BiquadCoefs secondOrder (const Polynomial& n, const Polynomial& d)
{
    const double D = d.s2 + d.s1 + d.s0;
    return { (n.s2 + n.s1 + n.s0) / D, 2 * (n.s0 - n.s2) / D, (n.s2 - n.s1 + n.s0) / D, 2 * (d.s2 - d.s0) / D,
             (d.s1 - d.s2 - d.s0) / D };
}

} // namespace

BiquadCoefs designLowShelf (double sampleRate, double f, double gainDb, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double size = std::abs (gainDb);
    const double G = linearGain (size);
    const double W = linearGain (slope * maxDb + (1 - slope) * size) * prewarped (sampleRate, f);
    const Polynomial above{ .s1 = 1, .s0 = W };
    const Polynomial below{ .s1 = 1, .s0 = W / G };
    return gainDb >= 0 ? firstOrder (above, below) : firstOrder (below, above);
}

BiquadCoefs designHighShelf (double sampleRate, double f, double gainDb, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double size = std::abs (gainDb);
    const double V = linearGain (slope * (size - maxDb)) * prewarped (sampleRate, f);
    const Polynomial raised{ .s1 = linearGain (size), .s0 = V };
    const Polynomial plain{ .s1 = 1, .s0 = V };
    return gainDb >= 0 ? firstOrder (raised, plain) : firstOrder (plain, raised);
}

BiquadCoefs designPeaking (double sampleRate, double f, double gainDb, double q, double slope, double maxDb)
{
    if (isBeyondSpectrum (sampleRate, f))
        return kPassThrough;

    const double size = std::abs (gainDb);
    const double t = prewarped (sampleRate, f);
    const double B = linearGain (slope * (maxDb - size)) * t / correctedQ (sampleRate, f, q);
    const Polynomial wide{ .s2 = 1, .s1 = linearGain (size) * B, .s0 = t * t };
    const Polynomial narrow{ .s2 = 1, .s1 = B, .s0 = t * t };
    return gainDb >= 0 ? secondOrder (wide, narrow) : secondOrder (narrow, wide);
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

} // namespace tessaly
