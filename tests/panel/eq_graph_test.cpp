#include "eq_graph.h"

#include "drawn_curves.h"
#include "german_locale.h"
#include "panel_ids.h"
#include "strip_fixture.h"
#include <cmath>
#include <doctest/doctest.h>
#include <tuple>

using namespace tessaly;
using doctest::Approx;
using enum StripParameter;

namespace
{

using Messages = std::vector<std::int32_t>;

constexpr ZRect kPlot{ 302, 62, 491, 119 };
constexpr ZColor kSumColor{ 255, 255, 255 };
constexpr ZColor kNormal{ 0, 116, 138 };
constexpr ZColor kBright{ 103, 254, 255 };
constexpr ZColor kDisabled{ 80, 80, 80 };
constexpr std::int32_t kFlat = 180; // step of a gain of 0 dB

// The axes, told anew: 3 decades from 20 Hz over 188 columns, 40 dB over 56 rows
double ColumnOf (double hz)
{
    return 302 + 188 * std::log10 (hz / 20) / 3;
}
double RowOf (double gainDb)
{
    return 62 + 56 * (20 - gainDb) / 40;
}
double HzAt (double column)
{
    return 20 * std::pow (1000.0, (column - 302) / 188);
}

/// The graph with low at 100 Hz, mid at 1 kHz, high at 10 kHz, all of them at 0 dB.
struct GraphFixture : StripFixture
{
    ZBitmap back = NamedBitmap ("back");
    ZBitmap low = NamedBitmap ("low");
    ZBitmap mid = NamedBitmap ("mid");
    ZBitmap high = NamedBitmap ("high");
    ZAMX_EqGraph graph{ this, { 285, 57, 496, 132 }, kEqGraphId };

    GraphFixture ()
    {
        SetStep (lowFreq, 32);
        SetStep (midFreq, 72);
        SetStep (highFreq, 112);
        SetStep (midQ, 20);
        graph.SetPlotRect (kPlot);
        graph.SetBackgrounds (&back, &back);
        graph.SetCurveStyle (kAllBands, 1, kSumColor, kSumColor, { 128, 128, 128 }, 51);
        for (const std::int32_t band : { kLowBand, kMidBand, kHighBand })
            graph.SetCurveStyle (band, 1, kNormal, kBright, kDisabled, 255);
        graph.SetMarkerSource ({ 0, 0, 11, 11 }, 2);
        graph.SetMarkers (&low, &mid, &high);
        graph.SetStrip (engine);
        StripFixture::Show (graph);
    }

    ZPoint Marker (std::int32_t band) const ///< its middle
    {
        const auto rect = graph.GetMarkerRect (band);
        return { (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2 };
    }
    ZPoint MoveBy (ZPoint from, std::int32_t dx, std::int32_t dy, std::int32_t modifiers = 0)
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
    auto MidSteps () const { return std::tuple (Step (midFreq), Step (midGain), Step (midQ)); }
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
            CAPTURE (band);
            const auto& curve = curves[3 - static_cast<std::size_t> (band)];
            REQUIRE (static_cast<int> (curve.points.size ()) == static_cast<int> (std::ceil (189 * scale)));
            for (std::size_t i = 0; i < curve.points.size (); ++i)
            {
                const auto hz = HzAt (302 + static_cast<double> (i) / scale);
                const auto [x, y] = curve.points[i];
                CHECK (std::abs (x - (302 + static_cast<double> (i) / scale)) <= 0.5 / scale + 1e-9);
                CHECK (std::abs (y - RowOf (f.engine->eqResponseDb (hz, band))) <= 0.5 / scale + 1e-6);
                CHECK (y * scale == Approx (std::round (y * scale)));
            }
        }
    }
}

TEST_CASE ("EqGraph: its axes go there and back")
{
    GraphFixture f;
    const auto& scale = f.graph.GetScale ();
    CHECK (scale.FreqToX (20) == 302);
    CHECK (scale.FreqToX (20000) == 490);
    CHECK (scale.GainToY (20) == 62);
    CHECK (scale.GainToY (-20) == 118);
    CHECK (scale.XToFreq (200) == 20.0);
    CHECK (scale.XToFreq (600) == 20000.0);
    for (std::int32_t x = 302; x < 491; ++x)
        CHECK (scale.FreqToX (scale.XToFreqExact (x)) == x);
    for (std::int32_t y = 62; y < 119; ++y)
        CHECK (scale.GainToY (scale.PixelToGainExact (y)) == y);
}

TEST_CASE ("EqGraph: a gain does not depend on the locale")
{
    GraphFixture f;
    const test::GermanLocale locale;
    CHECK (f.graph.PixelToGain (IndexOf (midGain), 85) == Approx (20 - 40 * 23 / 56.0));
}

TEST_CASE ("EqGraph: markers stand at their band's frequency and gain")
{
    GraphFixture f;
    f.SetStep (midGain, kFlat + 60);
    CHECK (f.graph.GetMarkerRect (kMidBand).left == std::lround (ColumnOf (1000)) - 5);
    CHECK (f.graph.GetMarkerRect (kMidBand).top == std::lround (RowOf (6)) - 5);
    CHECK (f.graph.GetMarkerRect (kAllBands).IsZero ());

    const auto middle = f.Marker (kMidBand);
    CHECK (f.graph.FindMarker (middle + ZPoint{ -7, -7 }) == kMidBand); // two pixels around it count, too
    CHECK (f.graph.FindMarker (middle + ZPoint{ -8, 0 }) == kNoBand);
    CHECK (f.graph.FindMarker (middle + ZPoint{ 7, 7 }) == kMidBand);
    CHECK (f.graph.FindMarker (middle + ZPoint{ 8, 0 }) == kNoBand);
}

TEST_CASE ("EqGraph: a press on overlapping markers takes the highest band")
{
    GraphFixture f;
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
    CHECK (f.TakeValues ().empty ());
    f.MoveBy (start, 32, -14);
    // 1 kHz is at column 408; 32 pixels on it is 3185 Hz, next to 3150. 14 rows are 10 dB
    CHECK (f.MidSteps () == std::tuple (92.0f, 280.0f, 20.0f));
    f.MoveBy (start, 500, 300);
    CHECK (f.MidSteps () == std::tuple (124.0f, 0.0f, 20.0f));
    f.Release (f.graph, start);
    CHECK (f.TakeMessages () == Messages{ kEditingEnded });
    CHECK_FALSE (f.Press (f.graph, { 310, 66 })); // beside all markers
    CHECK (f.TakeMessages ().empty ());
}

TEST_CASE ("EqGraph: with shift a drag locks to the axis that is first to move by four pixels")
{
    const auto dragged = [] (std::int32_t dx, std::int32_t dy)
    {
        GraphFixture f;
        const auto start = f.Marker (kMidBand);
        f.Press (f.graph, start, kShift);
        const auto at = f.MoveBy (start, dx, dy, kShift);
        const auto first = f.MidSteps ();
        f.MoveBy (at, 20, 20, 0); // letting go of shift unlocks nothing
        const auto moved = std::pair (f.Step (midFreq) != std::get<0> (first), f.Step (midGain) != std::get<1> (first));
        return std::tuple (f.Step (midFreq) != 72, f.Step (midGain) != kFlat, moved.first && moved.second);
    };
    const std::tuple frequencyAlone (true, false, false);
    const std::tuple gainAlone (false, true, false);
    CHECK (dragged (4, 3) == frequencyAlone);
    CHECK (dragged (-3, 4) == gainAlone);
    CHECK (dragged (4, -4) == gainAlone);

    GraphFixture f;
    const auto start = f.Marker (kMidBand);
    f.Press (f.graph, start, kShift);
    f.MoveBy (start, 3, -3, kShift);
    CHECK (f.TakeValues ().empty ());
}

TEST_CASE ("EqGraph: a modifier in the middle of a drag goes on from there")
{
    GraphFixture f;
    const auto start = f.Marker (kMidBand);
    f.Press (f.graph, start);
    auto at = f.MoveBy (start, 30, -20);
    const auto before = f.MidSteps ();
    f.TakeValues ();
    SUBCASE ("shift")
    {
        at = f.MoveBy (at, 40, 0, kShift);
        CHECK (f.TakeValues ().empty ());
        f.MoveBy (at, 0, 7, kShift);
        // Row 70 stands for 14.3 dB, where the gain was last set; its marker and 7 rows below are 5 dB less
        CHECK (std::get<0> (f.MidSteps ()) == std::get<0> (before));
        CHECK (f.Step (midGain) == Approx (std::get<1> (before) - 50).epsilon (0.01));
    }
    SUBCASE ("alt: the Q, a step for each pixel to the right and upwards")
    {
        at = f.MoveBy (at, 40, 0, kAlt);
        CHECK (f.TakeValues ().empty ());
        at = f.MoveBy (at, 5, -2, kAlt);
        CHECK (f.MidSteps () == std::tuple (std::get<0> (before), std::get<1> (before), 27.0f));
        f.MoveBy (at, 300, 0);
        CHECK (f.Step (midQ) == 60.0f);
    }
}

TEST_CASE ("EqGraph: alt on a band without Q leaves the drag free")
{
    GraphFixture f;
    const auto start = f.Marker (kLowBand);
    f.Press (f.graph, start, kAlt);
    f.MoveBy (start, 10, -14, kAlt);
    CHECK (f.Step (lowGain) == 280.0f);
    CHECK (f.Step (lowFreq) > 32.0f);
}

TEST_CASE ("EqGraph: control-click on a marker resets its gain")
{
    GraphFixture f;
    f.SetStep (midGain, 250);
    f.SetStep (highGain, 250);
    CHECK_FALSE (f.Press (f.graph, f.Marker (kMidBand), kControl));
    CHECK (f.MidSteps () == std::tuple (72.0f, 180.0f, 20.0f));
    CHECK (f.Step (highGain) == 250.0f);
}

TEST_CASE ("EqGraph: other buttons than the left one start nothing")
{
    GraphFixture f;
    for (const std::int32_t button : { kRightButton, kMiddleButton })
        CHECK_FALSE (f.Press (f.graph, f.Marker (kMidBand), 0, button));
    CHECK (f.TakeMessages ().empty ());
    CHECK (f.graph.GetCurrentBand () == kNoBand);
}

TEST_CASE ("EqGraph: the wheel steps a gain, and its light goes out when the pointer leaves")
{
    GraphFixture f;
    f.window.pointer = f.Marker (kMidBand);
    CHECK (f.Wheel (f.graph, 3));
    CHECK (f.Step (midGain) == 183.0f);
    CHECK (f.TakeMessages () == Messages{ kEditingStarted });
    f.window.pointer = f.Marker (kHighBand);
    f.Wheel (f.graph, -1000);
    CHECK (f.Step (highGain) == 0.0f);
    CHECK (f.TakeMessages () == Messages{ kEditingEnded, kEditingStarted });
    f.Idle (f.Marker (kHighBand));
    CHECK (f.TakeMessages ().empty ());
    f.Idle ({ 310, 66 });
    CHECK (f.TakeMessages () == Messages{ kEditingEnded });
    f.Idle ({ 310, 66 });
    CHECK (f.TakeMessages ().empty ());
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
        f.graph.KeyUp (f.event, { 0, 0, kKeyPageUp, 0 });
        CHECK (f.TakeMessages () == Messages{ kEditingEnded });
        f.KeyPress (kKeyDown);
        f.KeyPress (kKeyLeft);
        CHECK (f.MidSteps () == std::tuple (71.0f, 200.0f, 20.0f));
    }
    SUBCASE ("the Q, after a drag with alt")
    {
        const auto start = f.Marker (kMidBand);
        f.Press (f.graph, start, kAlt);
        f.Release (f.graph, start);
        f.KeyPress (kKeyRight);
        f.KeyPress (kKeyUp);
        CHECK (f.MidSteps () == std::tuple (72.0f, 181.0f, 21.0f));
    }
    const auto before = f.MidSteps ();
    f.TakeMessages ();
    f.graph.SetMouseEnabled (false);
    f.KeyPress (kKeyUp);
    f.graph.SetMouseEnabled (true);
    f.graph.EndBandEdit ();
    f.KeyPress (kKeyUp);
    CHECK (f.MidSteps () == before);
    CHECK (f.TakeMessages ().empty ());
}

TEST_CASE ("EqGraph: a marker under the pointer lights its curve unless something else is going on")
{
    GraphFixture f;
    const auto lights = [&]
    {
        f.Idle (f.Marker (kHighBand));
        return f.graph.GetCurveColor (kHighBand) == kBright;
    };
    CHECK (lights ());
    CHECK (f.graph.GetCurveColor (kMidBand) == kNormal);
    f.guidesIdle = false;
    CHECK_FALSE (lights ());
    f.capture = &f.graph;
    CHECK (lights ());
    ZPane other (&f);
    f.capture = &other;
    f.guidesIdle = true;
    CHECK_FALSE (lights ());
    f.capture = nullptr;
    CHECK (lights ());
    f.graph.SetMouseEnabled (false);
    CHECK_FALSE (lights ());
}

TEST_CASE ("EqGraph: markers and curves show which bands are touched")
{
    const auto look = [] (GraphFixture& f)
    {
        const auto log = f.Drawn (f.graph);
        std::vector<int> frames;
        for (const auto& call : log)
            if (call.starts_with ("DrawBitmap low") || call.starts_with ("DrawBitmap mid") ||
                call.starts_with ("DrawBitmap high"))
                frames.push_back (std::stoi (call.substr (call.rfind (',') + 1)) / 11);
        std::vector<ZColor> colors;
        for (const auto& curve : CurvesIn (log))
            colors.push_back (curve.color);
        return std::pair (frames, colors);
    };
    using Look = std::pair<std::vector<int>, std::vector<ZColor>>;
    GraphFixture f;
    CHECK (look (f) == Look{ { 0, 0, 0 }, { kNormal, kNormal, kNormal, kSumColor } });
    f.graph.SetCurrentBand (kHighBand);
    CHECK (f.graph.IsDirty ());
    CHECK (look (f) == Look{ { 0, 0, 1 }, { kNormal, kNormal, kSumColor, kBright } }); // on top of the others
    f.graph.SetCurrentBand (kAllBands);
    CHECK (look (f) == Look{ { 1, 1, 1 }, { kBright, kBright, kBright, kSumColor } });
    f.graph.SetActive (false);
    CHECK (look (f) == Look{ { 2, 2, 2 }, { kDisabled, kDisabled, kDisabled, { 128, 128, 128 } } });
}

TEST_CASE ("EqGraph: each parameter of the equalizer draws it anew, and no other")
{
    GraphFixture f;
    for (std::int32_t id = 0; id < kStripParameterCount; ++id)
    {
        f.graph.SetDirty (false);
        f.graph.SetValueById (id, 0.3f);
        CHECK (f.graph.IsDirty () == (id >= 10 && id <= 16));
    }
}
