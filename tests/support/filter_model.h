/// The filters of the strip as a textbook has them: direct form I sections, a crossfade of 10 ms from one set of
/// coefficients to the next, and the designs by the bilinear transform. Written for comparison, not for speed.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessaly::model
{

/// y[n] = b0 x[n] + b1 x[n-1] + b2 x[n-2] - a1 y[n-1] - a2 y[n-2]
struct Coefficients
{
    double b0 = 1.0, b1 = 0.0, b2 = 0.0, a1 = 0.0, a2 = 0.0;
};

/// One section in direct form I.
struct Section
{
    Coefficients c;
    double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;

    double Process (double x)
    {
        const double y = c.b0 * x + c.b1 * x1 + c.b2 * x2 - c.a1 * y1 - c.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        return y;
    }
};

/// A section whose new coefficients fade in along a logistic curve. One fade at a time; of the designs that arrive
/// during a fade only the last is heard, in a fade of its own.
class FadingSection
{
public:
    void Design (const Coefficients& coefficients)
    {
        latest = coefficients;
        waiting = true;
    }

    void StartUp (double rateHz) ///< silence, and the latest design at once
    {
        fadeLength = rateHz * 10.0 / 1000.0;
        fadePosition = static_cast<int> (fadeLength) + 1;
        waiting = false;
        current = Section{ .c = latest };
        outgoing = current;
    }

    double Process (double x)
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

private:
    Coefficients latest;
    bool waiting = false; // `latest` has not been taken up
    Section current, outgoing;
    double fadeLength = 0.0; // samples, a fraction too
    int fadePosition = 0;    // samples done
};

constexpr double kMaxDb = 18.0;
constexpr double kShelfSlope = 0.32;
constexpr double kPeakSlope = 0.70;

inline double Gain (double db)
{
    return std::pow (10.0, db / 20.0);
}

inline double Tangent (double rateHz, double hz)
{
    return std::tan (std::numbers::pi * hz / rateHz);
}

/// At low rates a band too near the Nyquist frequency passes its input.
inline bool IsOutOfBand (double rateHz, double hz)
{
    return rateHz < 44100.0 && hz > rateHz * 0.5 - 10.0;
}

/// The bilinear transform narrows a band near the top of the spectrum; a lower Q widens it again.
inline double CorrectedQ (double rateHz, double hz, double q)
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

/// A cut undoes the boost of equal size.
inline Coefficients BoostOrCut (double gainDb, const Coefficients& boost)
{
    const auto& [b0, b1, b2, a1, a2] = boost;
    return gainDb >= 0.0 ? boost : Coefficients{ 1.0 / b0, a1 / b0, a2 / b0, b1 / b0, b2 / b0 };
}

/// First order, Butterworth.
inline Coefficients HighPass (double rateHz, double hz)
{
    const double t = Tangent (rateHz, hz);
    return { .b0 = 1.0 / (1.0 + t), .b1 = -1.0 / (1.0 + t), .a1 = -(1.0 - t) / (1.0 + t) };
}

inline Coefficients LowShelf (double rateHz, double hz, double gainDb)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double g = Gain (std::abs (gainDb));
    const double corner = std::pow (Gain (kMaxDb), kShelfSlope) * Tangent (rateHz, hz);
    const double w = std::pow (g, 1.0 - kShelfSlope) * corner;
    const double d = w + g;
    return BoostOrCut (gainDb, { .b0 = (1.0 + w) * g / d, .b1 = -(1.0 - w) * g / d, .a1 = -(g - w) / d });
}

inline Coefficients HighShelf (double rateHz, double hz, double gainDb)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double g = Gain (std::abs (gainDb));
    const double corner = std::pow (Gain (kMaxDb), -kShelfSlope) * Tangent (rateHz, hz);
    const double w = std::pow (g, kShelfSlope - 1.0) * corner;
    const double d = 1.0 + w * g;
    return BoostOrCut (gainDb, { .b0 = (1.0 + w) * g / d, .b1 = -(1.0 - w) * g / d, .a1 = -(1.0 - w * g) / d });
}

inline Coefficients Peak (double rateHz, double hz, double gainDb, double q)
{
    if (IsOutOfBand (rateHz, hz))
        return {};
    const double t = Tangent (rateHz, hz);
    const double g = Gain (std::abs (gainDb));
    const double w = 1.0 / CorrectedQ (rateHz, hz, q) / std::pow (g / Gain (kMaxDb), kPeakSlope) * t;
    const double s = 1.0 + t * t;
    const double u = t * t - 1.0;
    const double d = s + w;
    return BoostOrCut (gainDb, { (s + g * w) / d, 2.0 * u / d, (s - g * w) / d, 2.0 * u / d, (s - w) / d });
}

} // namespace tessaly::model
