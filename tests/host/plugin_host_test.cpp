#include "host_error.h"
#include "loaded_strip.h"
#include "progress.h"

#include <array>

using namespace tessaly::host;
using namespace tessaly::test;

TEST_CASE_FIXTURE (LoadedStrip, "Host: a block outside what was set up is refused before the plug-in sees it")
{
    instance.Setup (48000.0, 16, Steinberg::Vst::kRealtime);
    instance.Activate ();
    std::array<float, 32> samples{};
    const float* const inputs[]{ samples.data () };
    float* const outputs[]{ samples.data () };
    CHECK_NOTHROW (instance.Process ({ inputs, outputs, 16, {} }));
    CHECK_THROWS_AS (instance.Process ({ inputs, outputs, 17, {} }), HostError);
    CHECK_THROWS_AS (instance.Process ({ {}, outputs, 16, {} }), HostError);
    CHECK_THROWS_AS (instance.Setup (44100.0, 16, Steinberg::Vst::kRealtime), HostError);
}

TEST_CASE ("The progress bar keeps its width from start to end and beyond")
{
    using tessaly::render::ProgressBar;
    CHECK (ProgressBar (0.0, 10) == "[----------]   0 %");
    CHECK (ProgressBar (0.999, 10) == "[#########-]  99 %");
    CHECK (ProgressBar (1.5, 10) == "[##########] 100 %"); // a recording longer than its header says
    CHECK (ProgressBar (-1.0, 10) == "[----------]   0 %");
}
