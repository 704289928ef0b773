#include "eq_graph.h"

#include "drawn_curves.h"
#include "german_locale.h"
#include "panel_layout.h"
#include "strip_fixture.h"
#include <cmath>
#include <doctest/doctest.h>
#include <tuple>

using namespace tessaly;
using namespace tessaly::layout;
using doctest::Approx;
using enum StripParameter;

namespace
{

using Messages = std::vector<std::int32_t>;
using Steps = std::tuple<float, float, float>; // frequency, gain and Q of a band

constexpr ZPoint kBesideMarkers{ 310, 66 };

/// The graph with low at 100 Hz, mid at 1 kHz, high at 10 kHz, all of them at 0 dB.
struct GraphFixture : StripFixture
{
    ZBitmap marker = NamedBitmap ("marker");
    ZAMX_EqGraph graph{ this, kEqGraph, kEqGraphId };

    GraphFixture ()
    {
        SetStep (lowFreq, 32);
        SetStep (midFreq, 72);
        SetStep (midQ, 20);
        SetStep (highFreq, 112);
        graph.SetPlotRect (kEqPlot);
        for (const std::int32_t band : { kAllBands, kLowBand, kMidBand, kHighBand })
        {
            const auto& style = band == kAllBands ? kSumCurve : kBandCurve;
            graph.SetCurveStyle (band, kEqCurveWidth, style.normal, style.bright, style.inactive, style.alpha);
        }
        graph.SetMarkerSource (kMarkerSource, kMarkerInactiveFrame);
        graph.SetMarkers (&marker, &marker, &marker);
        graph.SetStrip (engine);
        StripFixture::Show (graph);
    }

    ZPoint Marker (std::int32_t band) const { return graph.GetMarkerRect (band).TopLeft () + ZPoint{ 5, 5 }; }
    ZPoint DragBy (ZPoint from, std::int32_t dx, std::int32_t dy, std::int32_t modifiers = 0)
    {
        Drag (graph, from + ZPoint{ dx, dy }, modifiers);
        return from + ZPoint{ dx, dy };
    }
    void Idle (ZPoint point) { graph.Idle (event, At (point, 0)); }
    void KeyPress (std::int32_t key)
    {
        Key (graph, key);
        graph.KeyUp (event, { 0, 0, key, window.time });
    }
    Steps Mid () const { return { Step (midFreq), Step (midGain), Step (midQ) }; }
};

} // namespace

TEST_CASE ("EqGraph: curves lie where the engine's response is, at any density of the screen")
{
    GraphFixture f;
    f.SetStep (lowGain, 300);
    f.SetStep (midGain, 20);
    f.SetStep (highGain, 240);
    for (const double scale : { 1.0, 2.0, 1.25 })
    {
        CAPTURE (scale);
        f.surface.scale = scale;
        const auto curves = CurvesIn (f.Drawn (f.graph));
        REQUIRE (curves.size () == 4);
        for (std::int16_t band = 3; band >= 0; --band) // in this order, the sum on top
        {
            const auto& points = curves[3 - static_cast<std::size_t> (band)].points;
            REQUIRE (static_cast<double> (points.size ()) == std::ceil (189 * scale));
            for (std::size_t i = 0; i < points.size (); ++i)
            {
                // Three decades from 20 Hz over 188 columns from 302; 40 dB from +20 dB over 56 rows from 62
                const auto column = static_cast<double> (i) / scale;
                const auto gainDb = f.engine->eqResponseDb (20 * std::pow (1000.0, column / 188), band);
                const auto [x, y] = points[i];
                CHECK (std::abs (x - 302 - column) <= 0.5 / scale + 1e-9);
                CHECK (std::abs (y - 62 - 56 * (20 - gainDb) / 40) <= 0.5 / scale + 1e-6);
                CHECK (y * scale == Approx (std::round (y * scale)));
            }
        }
    }
}

TEST_CASE ("EqGraph: its axes go there and back, whatever the locale")
{
    GraphFixture f;
    const auto& scale = f.graph.GetScale ();
    for (std::int32_t x = 302; x < 491; ++x)
        CHECK (scale.FreqToX (scale.XToFreqExact (x)) == x);
    CHECK (scale.XToFreq (200) == 20.0);
    CHECK (scale.XToFreq (600) == 20000.0);
    const test::GermanLocale locale;
    for (std::int32_t y = 62; y < 119; ++y)
        CHECK (scale.GainToY (f.graph.PixelToGain (IndexOf (midGain), y)) == y);
}

TEST_CASE ("EqGraph: a press takes the highest of overlapping markers, two pixels around them, too")
{
    GraphFixture f;
    const auto middle = f.Marker (kMidBand);
    CHECK (middle == ZPoint{ 408, 90 }); // 1 kHz, 0 dB
    CHECK (f.graph.FindMarker (middle + ZPoint{ -7, 7 }) == kMidBand);
    CHECK (f.graph.FindMarker (middle + ZPoint{ -8, 0 }) == kNoBand);
    CHECK (f.graph.FindMarker (middle + ZPoint{ 0, 8 }) == kNoBand);
    for (const auto parameter : { lowFreq, midFreq, highFreq })
        f.SetStep (parameter, 70);
    CHECK (f.Press (f.graph, f.Marker (kLowBand)));
    CHECK (f.graph.GetCurrentBand () == kHighBand);
}

TEST_CASE ("EqGraph: a drag moves frequency and gain to the nearest steps")
{
    GraphFixture f;
    const auto start = f.Marker (kMidBand);
    f.Press (f.graph, start);
    CHECK (f.TakeMessages () == Messages{ kEditingStarted });
    f.DragBy (start, 32, -14);
    CHECK (f.Mid () == Steps{ 92, 280, 20 }); // column 440 is 3185 Hz, next to 3150; 14 rows are 10 dB
    f.DragBy (start, 500, 300);
    CHECK (f.Mid () == Steps{ 124, 0, 20 });
    f.Release (f.graph, start);
    CHECK (f.TakeMessages () == Messages{ kEditingEnded });

    CHECK_FALSE (f.Press (f.graph, kBesideMarkers));
    CHECK_FALSE (f.Press (f.graph, f.Marker (kLowBand), 0, kRightButton));
    CHECK (f.TakeMessages ().empty ());
}

TEST_CASE ("EqGraph: with shift a drag locks to the first axis to move by four pixels")
{
    const auto frequencyAndGainMove = [] (std::int32_t dx, std::int32_t dy)
    {
        GraphFixture f;
        const auto start = f.Marker (kMidBand);
        f.Press (f.graph, start, kShift);
        const auto at = f.DragBy (start, dx, dy, kShift);
        f.DragBy (at, 20, 20); // letting go of shift unlocks nothing, either
        return std::pair (f.Step (midFreq) != 72, f.Step (midGain) != 180);
    };
    CHECK (frequencyAndGainMove (4, 3) == std::pair (true, false));
    CHECK (frequencyAndGainMove (-3, 4) == std::pair (false, true));
    CHECK (frequencyAndGainMove (4, -4) == std::pair (false, true));

    GraphFixture f;
    f.Press (f.graph, f.Marker (kMidBand), kShift);
    f.DragBy (f.Marker (kMidBand), 3, -3, kShift);
    CHECK (f.TakeValues ().empty ());
}

TEST_CASE ("EqGraph: a modifier in the middle of a drag goes on from there")
{
    GraphFixture f;
    const auto start = f.Marker (kMidBand);
    f.Press (f.graph, start);
    auto at = f.DragBy (start, 30, -21);
    const auto [frequency, gain, q] = f.Mid ();
    f.TakeValues ();
    SUBCASE ("shift: an axis")
    {
        at = f.DragBy (at, 40, 0, kShift);
        CHECK (f.TakeValues ().empty ());
        f.DragBy (at, 0, 7, kShift);
        CHECK (f.Mid () == Steps{ frequency, gain - 50, q }); // 7 rows are 5 dB
    }
    SUBCASE ("alt: the Q, a step for each pixel to the right and upwards")
    {
        at = f.DragBy (at, 40, 0, kAlt);
        CHECK (f.TakeValues ().empty ());
        at = f.DragBy (at, 5, -2, kAlt);
        CHECK (f.Mid () == Steps{ frequency, gain, q + 7 });
        f.DragBy (at, 300, 0);
        CHECK (f.Step (midQ) == 60);
    }
}

TEST_CASE ("EqGraph: alt on a band without Q leaves the drag free, control resets the gain")
{
    GraphFixture f;
    f.Press (f.graph, f.Marker (kLowBand), kAlt);
    f.DragBy (f.Marker (kLowBand), 10, -14, kAlt);
    f.Release (f.graph, {});
    CHECK (f.Step (lowGain) == 280);
    const auto frequency = f.Step (lowFreq);
    CHECK (frequency > 32);
    CHECK_FALSE (f.Press (f.graph, f.Marker (kLowBand), kControl));
    CHECK (f.Step (lowGain) == 180);
    CHECK (f.Step (lowFreq) == frequency);
}

TEST_CASE ("EqGraph: the wheel steps a gain, and its light goes out when the pointer leaves")
{
    GraphFixture f;
    f.window.pointer = f.Marker (kMidBand);
    CHECK (f.Wheel (f.graph, 3));
    CHECK (f.Step (midGain) == 183);
    CHECK (f.TakeMessages () == Messages{ kEditingStarted });
    f.window.pointer = f.Marker (kHighBand);
    f.Wheel (f.graph, -1000);
    CHECK (f.Step (highGain) == 0);
    CHECK (f.TakeMessages () == Messages{ kEditingEnded, kEditingStarted });
    f.Idle (f.Marker (kHighBand));
    CHECK (f.TakeMessages ().empty ());
    f.Idle (kBesideMarkers);
    f.Idle (kBesideMarkers);
    CHECK (f.TakeMessages () == Messages{ kEditingEnded });
}

TEST_CASE ("EqGraph: keys go on with what the last gesture moved")
{
    GraphFixture f;
    f.KeyPress (kKeyUp); // no gesture yet
    CHECK (f.TakeMessages ().empty ());
    SUBCASE ("frequency and gain, after the wheel")
    {
        f.window.pointer = f.Marker (kMidBand);
        f.Wheel (f.graph, 1);
        f.TakeMessages ();
        f.Key (f.graph, kKeyPageUp);
        f.graph.KeyRepeat (f.event, { 0, 0, kKeyPageUp, 0 });
        CHECK (f.TakeMessages () == Messages{ kEditingStarted });
        f.KeyPress (kKeyDown);
        CHECK (f.TakeMessages () == Messages{ kEditingEnded });
        f.KeyPress (kKeyLeft);
        CHECK (f.Mid () == Steps{ 71, 200, 20 });
    }
    SUBCASE ("the Q, after a drag with alt")
    {
        f.Press (f.graph, f.Marker (kMidBand), kAlt);
        f.Release (f.graph, f.Marker (kMidBand));
        f.KeyPress (kKeyRight);
        f.KeyPress (kKeyUp);
        CHECK (f.Mid () == Steps{ 72, 181, 21 });
    }
    const auto before = f.Mid ();
    f.graph.SetMouseEnabled (false);
    f.KeyPress (kKeyUp);
    f.graph.SetMouseEnabled (true);
    f.graph.EndBandEdit ();
    f.KeyPress (kKeyUp);
    CHECK (f.Mid () == before);
}

TEST_CASE ("EqGraph: a marker under the pointer lights its curve unless something else is going on")
{
    GraphFixture f;
    ZPane other (&f);
    const auto lights = [&] (bool guidesIdle, ZPane* capture)
    {
        f.guidesIdle = guidesIdle;
        f.capture = capture;
        f.Idle (f.Marker (kHighBand));
        CHECK (f.graph.GetCurveColor (kMidBand) == kBandCurve.normal);
        return f.graph.GetCurveColor (kHighBand) == kBandCurve.bright;
    };
    CHECK (lights (true, nullptr));
    CHECK_FALSE (lights (false, nullptr));
    CHECK (lights (false, &f.graph));
    CHECK_FALSE (lights (true, &other));
    CHECK (lights (true, nullptr));
    f.graph.SetMouseEnabled (false);
    CHECK_FALSE (lights (true, nullptr));
}

TEST_CASE ("EqGraph: markers and curves show which bands are touched")
{
    GraphFixture f;
    const auto looks = [&] (std::vector<int> frames, std::vector<ZColor> colors)
    {
        std::vector<int> framesSeen;
        std::vector<ZColor> colorsSeen;
        const auto log = f.Drawn (f.graph);
        for (const auto& call : log)
            if (call.operation == "DrawBitmap" && call.text.starts_with ("marker"))
                framesSeen.push_back (call.from.y / kMarkerSource.Height ());
        for (const auto& curve : CurvesIn (log))
            colorsSeen.push_back (curve.color);
        CHECK (framesSeen == frames);
        CHECK (colorsSeen == colors);
    };
    const auto [normal, bright, inactive, alpha] = kBandCurve;
    looks ({ 0, 0, 0 }, { normal, normal, normal, kSumCurve.normal });
    f.graph.SetCurrentBand (kHighBand);
    looks ({ 0, 0, 1 }, { normal, normal, kSumCurve.normal, bright }); // on top of the others
    f.graph.SetCurrentBand (kAllBands);
    looks ({ 1, 1, 1 }, { bright, bright, bright, kSumCurve.bright });
    f.graph.SetActive (false);
    looks ({ 2, 2, 2 }, { inactive, inactive, inactive, kSumCurve.inactive });
}
