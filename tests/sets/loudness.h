#pragma once

#include <cmath>
#include <numbers>
#include <numeric>
#include <vector>

namespace tessaly::test
{

/// A section of a recursive filter; the coefficients of a0 to a2 come unscaled.
inline void Filter (std::vector<double>& samples, const double (&b)[3], const double (&a)[3])
{
    double first = 0.0;
    double second = 0.0;
    for (double& sample : samples)
    {
        const double out = (b[0] * sample + first) / a[0];
        first = b[1] * sample - a[1] * out + second;
        second = b[2] * sample - a[2] * out;
        sample = out;
    }
}

/// Loudness in LKFS as in ITU-R BS.1770, without gates: the mean power behind the K weighting. Its two filters, which
/// the recommendation gives at 48 kHz, are designed for the rate here from their analogue corner, gain and quality.
inline double Loudness (const std::vector<float>& audio, double rateHz)
{
    std::vector<double> samples (audio.begin (), audio.end ());

    const double head = std::tan (std::numbers::pi * 1681.974450955533 / rateHz); // the head: a high shelf of 4 dB
    const double square = head * head;
    const double q = head / 0.7071752369554196;
    const double high = std::pow (10.0, 3.999843853973347 / 20.0);
    const double band = std::pow (high, 0.4996667741545416) * q;
    Filter (samples, { high + band + square, 2.0 * (square - high), high - band + square },
            { 1.0 + q + square, 2.0 * (square - 1.0), 1.0 - q + square });

    const double low = std::tan (std::numbers::pi * 38.13547087602444 / rateHz); // the ear's low end: a high-pass
    const double lowQ = low / 0.5003270373238773;
    const double a0 = 1.0 + lowQ + low * low;
    Filter (samples, { a0, -2.0 * a0, a0 }, { a0, 2.0 * (low * low - 1.0), 1.0 - lowQ + low * low });

    const double power = std::inner_product (samples.begin (), samples.end (), samples.begin (), 0.0);
    return -0.691 + 10.0 * std::log10 (power / static_cast<double> (samples.size ()));
}

} // namespace tessaly::test
