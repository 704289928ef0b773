#include "glide.h"

#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;
using doctest::Approx;

TEST_CASE ("Glide: 1/e of the way is left after 10 ms at every rate, and it lands exactly, never past its target")
{
    for (const double rate : { 8000.0, 44100.0, 192000.0 })
        for (const double target : { 1.0, -1.0 })
        {
            const double coef = glideCoefficient (rate);
            Glide glide (0.0);
            double value = 0.0;
            double furthest = 0.0;
            for (int n = 0; n < rate; furthest = std::max (furthest, value / target), ++n)
            {
                if (n == std::ceil (rate * 0.01))
                    CHECK (1 - value / target == Approx (std::exp (-1.0)).epsilon (1e-3));
                value = glide.next (target, coef);
            }
            CHECK (value == target);
            CHECK (furthest == 1.0);
        }
}

TEST_CASE ("GlideRow: its rows are a glide's values, whatever their lengths, moving and standing")
{
    constexpr double kCoef = 0.05;
    Glide glide (1.0);
    GlideRow row (1.0);
    bool equal = true;
    for (const double target : { 1.0, 2.0, 1.0, 1.0, -3.0 })
        for (const std::size_t count : { 7U, 256U, 32U, 256U, 256U, 1U, 64U })
        {
            const double* values = row.next (count, target, kCoef);
            for (std::size_t i = 0; i < count; ++i)
                equal = equal && values[i] == (glide.hasLanded (target) ? target : glide.next (target, kCoef));
        }
    CHECK (equal);
    CHECK (glide.hasLanded (-3.0));
}
