#include "fade_weights.h"

#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;

TEST_CASE ("FadeWeights: a row is the logistic curve from the samples done on")
{
    constexpr double kLength = 441.5;
    FadeWeights weights (100);
    for (const int done : { 0, 37, 341 })
    {
        const double* const row = weights.row (done, kLength);
        double worst = 0.0;
        for (int i = 0; i < 100; ++i) // 1 / (1 + exp (-2x)) is (1 + tanh x) / 2
            worst = std::max (worst, std::abs (row[i] - 0.5 - 0.5 * std::tanh (5 * ((done + i) / kLength - 0.5))));
        CAPTURE (done);
        CHECK (worst < 1e-12);
    }
}

TEST_CASE ("FadeWeights: crossfades that began together share a row, others have their own")
{
    FadeWeights weights (16);
    const double* const first = weights.row (0, 480);
    const double before = first[0];
    CHECK (weights.row (32, 480) != first);
    CHECK (weights.row (0, 480) == first);
    CHECK (first[0] == before);
}
