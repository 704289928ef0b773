#include "comp_graph.h"

#include "drawn_curves.h"
#include "knee_switch.h"
#include "panel_layout.h"
#include "strip_fixture.h"
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::layout;
using enum StripParameter;

TEST_CASE ("CompGraph: the curve lies where the engine computes it, at any density of the screen")
{
    StripFixture f;
    ZAMX_CompGraph graph (&f, kCompGraph, kCompGraphId);
    graph.SetPlotRect (kCompPlot);
    graph.SetStrip (f.engine);
    f.Show (graph);
    for (const double scale : { 1.0, 2.0, 1.25 })
    {
        CAPTURE (scale);
        f.surface.scale = scale;
        const auto curves = CurvesIn (f.Drawn (graph));
        REQUIRE (curves.size () == 1);
        const auto& points = curves.front ().points;
        REQUIRE (static_cast<double> (points.size ()) == std::ceil (57 * scale));
        for (std::size_t i = 0; i < points.size (); ++i)
        {
            const auto column = static_cast<double> (i) / scale;
            const auto outputDb = f.engine->compressorCurveDb (column * 60 / 56 - 60);
            CHECK (std::abs (points[i].y - (62 - outputDb * 56 / 60)) <= 0.5 / scale + 1e-6);
        }
    }
}

TEST_CASE ("CompGraph: drive, ratio, knee and the hidden two draw it anew")
{
    StripFixture f;
    ZAMX_CompGraph graph (&f, kCompGraph, kCompGraphId);
    for (std::int32_t id = 0; id < kStripParameterCount; ++id)
    {
        graph.SetDirty (false);
        graph.SetValueById (id, 0.3f);
        CHECK (graph.IsDirty () == (id == 0 || (id >= 3 && id <= 6)));
    }
}

namespace
{

struct KneeFixture : StripFixture
{
    ZAMX_KneeSwitch knee{ this, kKneeSwitch, IndexOf (StripParameter::knee) };

    KneeFixture ()
    {
        knee.SetImages (&strip, &strip, kKneePositions, 13);
        knee.SetRegions (kKneeRegions.data (), kKneePositions);
        StripFixture::Show (knee);
    }
    std::int32_t Index () const { return storage->GetInt (knee.GetId ()); }
};

} // namespace

TEST_CASE ("KneeSwitch: a press chooses the word under it, and sliding on nothing further")
{
    KneeFixture f;
    CHECK (f.Press (f.knee, { 120, 140 }));
    CHECK (f.Index () == 2);
    CHECK (f.Drag (f.knee, { 40, 140 }));
    f.Release (f.knee, { 40, 140 });
    CHECK (f.Index () == 2);
    CHECK (f.FrameShown (f.knee) == 2 * 13);
    f.knee.SetDirty (false);
    f.knee.SetBright (true, true);
    CHECK (f.knee.IsDirty ());
    CHECK (f.FrameShown (f.knee) == 5 * 13); // the bright row of the same word
    f.Press (f.knee, { 66, 140 });           // in two regions
    f.Release (f.knee, { 66, 140 });
    CHECK (f.Index () == 0);
    f.knee.SetRegions (nullptr, 0);
    f.Press (f.knee, { 120, 140 });
    CHECK (f.Index () == 0);
}

TEST_CASE ("KneeSwitch: wheel and keys step within the list while the mouse is enabled")
{
    KneeFixture f;
    f.Wheel (f.knee, 1);
    CHECK (f.Index () == 2);
    f.TakeValues ();
    f.knee.SetDirty (false);
    CHECK (f.Wheel (f.knee, 5));
    CHECK (f.TakeValues ().empty ());
    CHECK_FALSE (f.knee.IsDirty ());
    f.Key (f.knee, kKeyPageDown);
    CHECK (f.Index () == 0);
    f.Key (f.knee, kKeyUp);
    CHECK (f.Index () == 1);
    f.knee.SetMouseEnabled (false);
    CHECK_FALSE (f.Key (f.knee, kKeyUp));
    CHECK_FALSE (f.Wheel (f.knee, 1));
    CHECK (f.Index () == 1);
}
