#include "glide.h"

#include <doctest/doctest.h>

using namespace tessaly;

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
