#include "glide.h"

#include <cmath>
#include <doctest/doctest.h>
#include <vector>

using namespace tessaly;
using doctest::Approx;

namespace
{

std::vector<double> glided (double from, double to, double rateHz, std::size_t count, std::size_t row)
{
    Glide glide (from);
    std::vector<double> values (count);
    for (std::size_t at = 0; at < count; at += row)
        glide.fill (&values[at], std::min (row, count - at), to, GlideLaw (rateHz));
    return values;
}

} // namespace

TEST_CASE ("Glide: 1/e of the way is left after 10 ms at every rate")
{
    for (const double rateHz : { 11025.0, 44100.0, 48000.0, 192000.0 })
    {
        const double left =
            1000.0 - glided (0.0, 1000.0, rateHz, std::size_t (rateHz), 64)[std::size_t (rateHz / 100) - 1];
        CAPTURE (rateHz);
        CHECK (left / 1000.0 == Approx (std::exp (-1.0)).epsilon (2e-2 * 44100 / rateHz / 10));
    }
}

TEST_CASE ("Glide: any row of samples is what single steps would give")
{
    const double c = 1 - std::exp (-1 / 44100.0 / 0.01);
    for (const auto& [from, to] : { std::pair (0.0, 1.0), { 1.0, 0.25 }, { -0.5, 0.5 } })
        for (const std::size_t row : { 1U, 3U, 8U, 61U, 256U })
        {
            const std::vector<double> values = glided (from, to, 44100.0, 20000, row);
            double value = from;
            double worst = 0.0;
            for (const double got : values)
            {
                const double step = (to - value) * c;
                value = step > 0 ? std::min (value + step + 1.2e-7, to) : std::max (value + step - 1.2e-7, to);
                worst = std::max (worst, std::abs (got - value));
            }
            CAPTURE (row);
            CHECK (worst < 1e-13);
            CHECK (values.back () == to); // landed exactly
        }
}

TEST_CASE ("GlideRow: a value that stands gives the same row again")
{
    GlideRow row (0.5);
    const GlideLaw law (48000.0);
    const double* const standing = row.next (100, 0.5, law);
    CHECK (standing[0] == 0.5);
    CHECK (standing[99] == 0.5);
    CHECK (row.next (kChunkSamples, 0.5, law)[kChunkSamples - 1] == 0.5);
    const double beginning = row.next (1, 1.0, law)[0];
    CHECK (beginning > 0.5);
    CHECK (row.next (2, 1.0, law)[1] > beginning);
    for (int i = 0; i < 200; ++i)
        row.next (kChunkSamples, 1.0, law);
    CHECK (row.next (3, 1.0, law)[2] == 1.0);
}
