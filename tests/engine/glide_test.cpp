#include "glide.h"

#include "strip_model.h"

#include <cmath>
#include <doctest/doctest.h>
#include <vector>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Glide: 1/e of the way is left after 10 ms at every rate")
{
    for (const double rateHz : { 11025.0, 44100.0, 48000.0, 192000.0 })
    {
        CAPTURE (rateHz);
        std::vector<double> values (std::size_t (rateHz / 100));
        Glide (0.0).fill (values.data (), values.size (), 1000.0, GlideLaw (rateHz));
        CHECK (1 - values.back () / 1000 == Approx (std::exp (-1.0)).epsilon (2e-2 * 44100 / rateHz / 10));
    }
}

TEST_CASE ("Glide: any row of samples is what single steps would give")
{
    for (const auto& [from, to] : { std::pair (0.0, 1.0), { 1.0, 0.25 }, { -0.5, 0.5 } })
        for (const std::size_t row : { 1U, 3U, 8U, 61U, 256U })
        {
            CAPTURE (row);
            Glide glide (from);
            model::Glide expected{ from, to };
            std::vector<double> values (row);
            double worst = 0.0;
            for (std::size_t at = 0; at < 20000; at += row)
            {
                glide.fill (values.data (), row, to, GlideLaw (44100.0));
                for (const double value : values)
                    worst = std::max (worst, std::abs (value - expected.Next (1 - std::exp (-1 / 44100.0 / 0.01))));
            }
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
