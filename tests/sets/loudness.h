#pragma once

#include <cmath>
#include <numbers>
#include <vector>

namespace tessaly::test
{

/// One section of a recursive filter, a0 = 1.
struct Section
{
    double b0, b1, b2, a1, a2;

    void Run (std::vector<double>& samples) const
    {
        double first = 0.0;
        double second = 0.0;
        for (double& sample : samples)
        {
            const double out = b0 * sample + first;
            first = b1 * sample - a1 * out + second;
            second = b2 * sample - a2 * out;
            sample = out;
        }
    }
};

/// Loudness in LKFS as in ITU-R BS.1770, without gates: the mean power behind the K weighting. Its two filters, which
/// the recommendation gives at 48 kHz, are designed for the rate here from their analogue corner, gain and quality.
inline double Loudness (const std::vector<float>& audio, double rateHz)
{
    std::vector<double> samples (audio.begin (), audio.end ());

    const double head = std::tan (std::numbers::pi * 1681.974450955533 / rateHz); // the head: a high shelf of 4 dB
    const double q = 0.7071752369554196;
    const double high = std::pow (10.0, 3.999843853973347 / 20.0);
    const double band = std::pow (high, 0.4996667741545416);
    const double a0 = 1.0 + head / q + head * head;
    const double a1 = 2.0 * (head * head - 1.0) / a0;
    const double a2 = (1.0 - head / q + head * head) / a0;
    Section{ (high + band * head / q + head * head) / a0, 2.0 * (head * head - high) / a0,
             (high - band * head / q + head * head) / a0, a1, a2 }
        .Run (samples);

    const double low = std::tan (std::numbers::pi * 38.13547087602444 / rateHz); // the ear's low end: a high-pass
    const double lowQ = 0.5003270373238773;
    const double c0 = 1.0 + low / lowQ + low * low;
    Section{ 1.0, -2.0, 1.0, 2.0 * (low * low - 1.0) / c0, (1.0 - low / lowQ + low * low) / c0 }.Run (samples);

    double power = 0.0;
    for (const double sample : samples)
        power += sample * sample;
    return -0.691 + 10.0 * std::log10 (power / static_cast<double> (samples.size ()));
}

} // namespace tessaly::test
