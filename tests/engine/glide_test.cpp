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
