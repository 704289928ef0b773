/// The filters of the strip as a textbook has them: direct form I sections, a crossfade of 10 ms from one set of
/// coefficients to the next, and the designs by the bilinear transform. Written for comparison, not for speed.
#pragma once

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

    double Process (double x);
};

/// A section whose new coefficients fade in along a logistic curve. One fade at a time; of the designs that arrive
/// during a fade only the last is heard, in a fade of its own.
class FadingSection
{
public:
    void Design (const Coefficients& coefficients);
    void StartUp (double rateHz); ///< silence, and the latest design at once
    double Process (double x);

private:
    Coefficients latest;
    bool waiting = false; // `latest` has not been taken up
    Section current, outgoing;
    double fadeLength = 0.0; // samples, a fraction too
    int fadePosition = 0;    // samples done
};

Coefficients HighPass (double rateHz, double hz); ///< first order, Butterworth
Coefficients LowShelf (double rateHz, double hz, double gainDb);
Coefficients HighShelf (double rateHz, double hz, double gainDb);
Coefficients Peak (double rateHz, double hz, double gainDb, double q);

} // namespace tessaly::model
