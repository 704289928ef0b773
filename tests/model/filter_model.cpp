#include "filter_model.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessaly::model
{
namespace
{

constexpr double kMaxDb = 18.0;
constexpr double kShelfSlope = 0.32;
constexpr double kPeakSlope = 0.70;

double Gain (double db)
{
    return std::pow (10.0, db / 20.0);
}

double Tangent (double rateHz, double hz)
{
    return std::tan (std::numbers::pi * hz / rateHz);
}

/// At low rates a band too near the Nyquist frequency passes its input.
bool IsOutOfBand (double rateHz, double hz)
{
    return rateHz < 44100.0 && hz > rateHz * 0.5 - 10.0;
}

/// The bilinear transform narrows a band near the top of the spectrum; a lower Q widens it again.
double CorrectedQ (double rateHz, double hz, double q)
{
    struct Row
    {
        double rateBelow, limitHz, a, b, c;
    };
    constexpr Row rows[] = { { 48000.0, 2000.0, 1.25513, 0.0301, 0.00004817 },
                             { 88200.0, 2000.0, 1.25686, 0.02143, 0.00004103 },
                             { 96000.0, 4000.0, 1.29486, 0.0317, 0.00002462 },
                             { HUGE_VAL, 4000.0, 1.21531, 0.02382, 0.00002004 } };
    const Row& row = *std::ranges::find_if (rows, [rateHz] (const Row& each) { return rateHz < each.rateBelow; });
    if (hz <= row.limitHz)
        return q;
    const double k = row.a - row.b * (std::log (q) * 1.4426950408889634) - row.c * hz;
    return k > 1.0 ? q : std::max (k * q, 0.1);
}

} // namespace

double Section::Process (double x)
{
    const double y = c.b0 * x + c.b1 * x1 + c.b2 * x2 - c.a1 * y1 - c.a2 * y2;
    x2 = x1;
    x1 = x;
    y2 = y1;
    y1 = y;
    return y;
}

void FadingSection::Design (const Coefficients& coefficients)
{
    latest = coefficients;
    waiting = true;
}

void FadingSection::StartUp (double rateHz)
{
    fadeLength = rateHz * 10.0 / 1000.0;
    fadePosition = static_cast<int> (fadeLength) + 1;
    waiting = false;
    current = Section{ .c = latest };
    outgoing = current;
}

double FadingSection::Process (double x)
{
    const int wholeLength = static_cast<int> (fadeLength);
    if (waiting && fadePosition >= wholeLength)
    {
        outgoing = current;
        current = Section{ .c = latest };
        waiting = false;
        fadePosition = 0;
    }
    const double incoming = current.Process (x);
    if (fadePosition >= wholeLength)
        return incoming;
    const double weight = 1.0 / (1.0 + std::exp (-10.0 * (fadePosition - fadeLength / 2.0) / fadeLength));
    ++fadePosition;
    return weight * incoming + (1.0 - weight) * outgoing.Process (x);
}

Coefficients HighPass (double rateHz, double hz)
{
    const double t = Tangent (rateHz, hz);
    return { .b0 = 1.0 / (1.0 + t), .b1 = -1.0 / (1.0 + t), .a1 = -(1.0 - t) / (1.0 + t) };
}

Coefficients LowShelf (double rateHz, double hz, double gainDb)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double g = Gain (std::abs (gainDb));
    const double corner = std::tan (std::atan (std::pow (Gain (kMaxDb), kShelfSlope) * Tangent (rateHz, hz)));
    const double w = std::pow (g, 1.0 - kShelfSlope) * corner;
    if (gainDb >= 0.0)
    {
        const double d = w + g;
        return { .b0 = (1.0 + w) * g / d, .b1 = -(1.0 - w) * g / d, .a1 = -(g - w) / d };
    }
    const double v = w / g;
    const double d = 1.0 + w;
    return { .b0 = (1.0 + v) / d, .b1 = -(1.0 - v) / d, .a1 = -(1.0 - w) / d };
}

Coefficients HighShelf (double rateHz, double hz, double gainDb)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double g = Gain (gainDb);
    const double corner = std::tan (std::atan (std::pow (1.0 / Gain (kMaxDb), kShelfSlope) * Tangent (rateHz, hz)));
    if (gainDb >= 0.0)
    {
        const double w = std::pow (g, kShelfSlope - 1.0) * corner;
        const double d = 1.0 + w * g;
        return { .b0 = (1.0 + w) * g / d, .b1 = -(1.0 - w) * g / d, .a1 = -(1.0 - w * g) / d };
    }
    const double w = std::pow (g, 1.0 - kShelfSlope) * corner;
    return { .b0 = (w + g) / (1.0 + w), .b1 = (w - g) / (1.0 + w), .a1 = -(1.0 - w) / (1.0 + w) };
}

Coefficients Peak (double rateHz, double hz, double gainDb, double q)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double t = Tangent (rateHz, hz);
    const double widening = std::pow (Gain (std::abs (gainDb) - kMaxDb), kPeakSlope);
    const double w = 1.0 / CorrectedQ (rateHz, hz, q) / widening * t;
    const double g = Gain (std::abs (gainDb));
    const double s = 1.0 + t * t;
    const double u = t * t - 1.0;
    if (gainDb >= 0.0)
    {
        const double d = s + w;
        return { (s + g * w) / d, 2.0 * u / d, (s - g * w) / d, 2.0 * u / d, (s - w) / d };
    }
    const double d = s + g * w;
    return { (s + w) / d, 2.0 * u / d, (s - w) / d, 2.0 * u / d, (s - g * w) / d };
}

} // namespace tessaly::model
