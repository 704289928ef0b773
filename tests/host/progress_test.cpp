#include "progress.h"

#include <doctest/doctest.h>

using tessaly::render::ProgressBar;

TEST_CASE ("The progress bar keeps its width from start to end and beyond")
{
    CHECK (ProgressBar (0.0, 10) == "[----------]   0 %");
    CHECK (ProgressBar (0.999, 10) == "[#########-]  99 %");
    CHECK (ProgressBar (1.5, 10) == "[##########] 100 %"); // a recording longer than its header says
    CHECK (ProgressBar (-1.0, 10) == "[----------]   0 %");
}
