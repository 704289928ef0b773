#include "panel_in_window.h"
#include "pluginterfaces/base/keycodes.h"

#include <set>

namespace tessaly::test
{

using namespace Steinberg;

TEST_CASE ("Gestures: a small dial is edited by the wheel and by a drag around the knob once its ring is open")
{
    PanelInWindow panel;
    for (const auto& dial : kSmallDials)
    {
        CAPTURE (dial.id);
        panel.instance.Parameters ().SetNormalized (dial.id, 0.5);
        panel.Settle ();
        panel.TakeGestures ();
        const double before = panel.Plain (dial.id);
        panel.Wheel (dial.knob, -1);
        CHECK (panel.Plain (dial.id) == before);
        panel.Wheel (dial.knob, -2);
        CHECK (panel.Plain (dial.id) == doctest::Approx (before - 2));
        panel.Key (key::kEscape);
        panel.MoveTo (kEmpty);
        panel.CheckOneEdit (dial.id);

        panel.instance.Parameters ().SetNormalized (dial.id, 0.5);
        panel.MoveTo (dial.knob);
        panel.Press ();
        panel.MoveTo (dial.knob + Place{ 0, -10 }); // within the knob's circle
        CHECK (panel.Plain (dial.id) == before);
        panel.MoveTo (dial.knob + Place{ 0, -30 });
        panel.MoveTo (dial.knob + Place{ 30, 0 }); // a quarter turn to the right
        panel.Release ();
        CHECK (panel.Value (dial.id) == doctest::Approx (0.8).epsilon (0.02));
        panel.CheckOneEdit (dial.id);
        panel.MoveTo (kEmpty);
        panel.Until ([] { return false; }, 300ms); // the ring shrinks in 200 ms
    }
}

TEST_CASE ("Gestures: the drive dial follows the host's knob mode")
{
    PanelInWindow panel;
    const FUnknownPtr<Vst::IEditController2> modes (&panel.instance.Controller ());
    REQUIRE (modes);
    const auto dragUpFromTheLeft = [&] (Vst::KnobMode mode)
    {
        modes->setKnobMode (mode);
        panel.instance.Parameters ().SetNormalized (kDrive, 0.5);
        panel.Settle ();
        panel.Drag ({ kDriveDial + Place{ -20, 0 }, kDriveDial + Place{ -20, -10 } });
        return panel.Value (kDrive);
    };
    // Left is 90 of 30 to 330 degrees; ten up from there is 26 degrees more.
    CHECK (dragUpFromTheLeft (Vst::kCircularMode) == doctest::Approx ((86.0) / 300.0).epsilon (0.03));
    CHECK (dragUpFromTheLeft (Vst::kRelativCircularMode) == doctest::Approx (0.5 + 26.0 / 300.0).epsilon (0.03));
    const double straight = dragUpFromTheLeft (Vst::kLinearMode);
    CHECK (straight > 0.5);
    modes->setKnobMode (Vst::kCircularMode); // the module keeps it for all instances
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
}

TEST_CASE ("Gestures: a drag of the morph dial reports all that it moves")
{
    PanelInWindow panel;
    const auto plain = panel.Look (kOverlaySpot);
    const auto whole = panel.Look ();
    panel.MoveTo (kMorphDial + Place{ -30, 0 });
    panel.Press ();
    CHECK (panel.LooksOtherThan (whole));
    panel.MoveTo (kMorphDial + Place{ 0, -30 });
    panel.MoveTo (kMorphDial + Place{ 30, 0 });
    panel.Release ();

    std::set<std::uint32_t> moved;
    for (const auto& gesture : panel.TakeGestures ())
    {
        CHECK (gesture.performs >= 1);
        CHECK (gesture.last == doctest::Approx (panel.Value (gesture.id)));
        moved.insert (gesture.id);
    }
    CHECK (moved.contains (kMorph));
    CHECK_FALSE (moved.contains (kDrive));
    CHECK (std::ranges::all_of (moved, [] (auto id) { return id <= kTotalGain || id == kMorph; }));
    CHECK (moved.size () > 10);
    CHECK (panel.Until ([&] { return panel.Look (kOverlaySpot) == plain; }));
}

TEST_CASE ("Gestures: a bypass switch works in its own area alone and dims its section")
{
    PanelInWindow panel;
    const Area compressor{ 27, 60, 120, 60 };
    const auto lit = panel.Look (compressor);
    panel.Click (kCompressorSwitchFrame);
    CHECK (panel.calls.empty ());
    panel.Click (kCompressorSwitch);
    CHECK (panel.Value (kCompressorBypass) == 1.0);
    panel.MoveTo (kEmpty);
    CHECK (panel.LooksOtherThan (lit, compressor));
    panel.TakeGestures ();
    panel.Wheel (kAttackKnob, 2);
    panel.Click (kKneeHard);
    panel.DoubleClick (kAttackText);
    CHECK (panel.calls.empty ());
    panel.Wheel (kCompressorSwitch, -1);
    CHECK (panel.Value (kCompressorBypass) == 0.0);
    panel.MoveTo (kEmpty);
    CHECK (panel.Until ([&] { return panel.Look (compressor) == lit; }));
    panel.Click (kEqualizerSwitch);
    CHECK (panel.Value (kEqualizerBypass) == 1.0);
}

TEST_CASE ("Gestures: a read-out is dragged up and down, and reset with the control key")
{
    PanelInWindow panel;
    const double before = panel.Plain (kAttack);
    const int way = before > 10.0 ? 5 : -5; // down where there is room
    panel.Drag ({ kAttackText, kAttackText + Place{ 0, way } });
    CHECK (panel.Plain (kAttack) == doctest::Approx (before - way));
    panel.CheckOneEdit (kAttack);
    panel.MoveTo (kEmpty);
    panel.While (key::kControl, [&] { panel.Click (kAttackText); });
    CHECK (panel.Plain (kAttack) == doctest::Approx (before));
}

TEST_CASE ("Gestures: keys move what was touched last, others reach the host")
{
    PanelInWindow panel;
    panel.Wheel (kDriveDial, 1);
    const double before = panel.Plain (kDrive);
    panel.Key (key::kUp);
    panel.Key (key::kPageUp);
    CHECK (panel.Plain (kDrive) == doctest::Approx (before + 11));
    CHECK (panel.window.TakeKeysForHost ().empty ());
    panel.Key ('a');
    CHECK (panel.window.TakeKeysForHost ().size () == 1);
    panel.TakeGestures ();
    SUBCASE ("held, they repeat within one edit")
    {
        panel.While (key::kUp, [&] { CHECK (panel.Until ([&] { return panel.calls.size () >= 5; })); });
        panel.CheckOneEdit (kDrive);
    }
    SUBCASE ("also those that the host hands to the view")
    {
        auto& view = panel.window.View ();
        CHECK (view.onKeyDown (0, KEY_DOWN, 0) == kResultTrue);
        CHECK (view.onKeyDown (0, KEY_DOWN, 0) == kResultTrue);
        CHECK (view.onKeyUp (0, KEY_DOWN, 0) == kResultTrue);
        CHECK (view.onKeyDown ('q', 0, 0) == kResultFalse);
        CHECK (panel.Plain (kDrive) == doctest::Approx (before + 9));
        CHECK (view.onFocus (true) == kResultFalse);
    }
}

TEST_CASE ("Gestures: a drag goes on outside of the window and ends there")
{
    PanelInWindow panel ({ .left = 200, .top = 200 });
    panel.MoveTo (kMorphDial + Place{ -30, 0 });
    panel.Press ();
    panel.MoveTo ({ kMorphDial.x, -100 }); // straight above the dial
    CHECK (panel.Until ([&] { return std::abs (panel.Value (kMorph) - 0.5) < 0.02; }));
    CHECK_FALSE (AllEnded (panel.calls));
    panel.Release ();
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    const double released = panel.Value (kMorph);
    panel.MoveTo (kMorphDial + Place{ 30, 0 });
    CHECK (panel.Value (kMorph) == released);
}

TEST_CASE ("Gestures: a drag that is over before the panel looks arrives whole")
{
    PanelInWindow panel;
    const auto& user = Desktop::Get ().user;
    panel.MoveTo (kDriveDial + Place{ -20, 0 });
    user.Press (UserInput::left);
    for (const Place to : { Place{ -14, -14 }, Place{ 0, -20 }, Place{ 14, -14 }, Place{ 20, 0 } })
        user.MoveTo (kDriveDial.x + to.x, kDriveDial.y + to.y);
    user.Release (UserInput::left);
    user.MoveTo (kEmpty.x, kEmpty.y);
    panel.Settle ();
    CHECK (panel.Value (kDrive) == doctest::Approx (0.8).epsilon (0.01)); // a quarter turn right of upright
    panel.CheckOneEdit (kDrive);
}

TEST_CASE ("Gestures: neither wheel and keys nor two seconds of rest divide a drag's edit")
{
    PanelInWindow panel;
    panel.MoveTo (kDriveDial + Place{ -20, 0 });
    panel.Press ();
    panel.MoveTo (kDriveDial + Place{ 0, -20 });
    Desktop::Get ().user.Wheel (1);
    panel.Key ('a');
    panel.Key (key::kUp);
    panel.Until ([] { return false; }, 2500ms); // an edit by the wheel ends by itself after two seconds
    CHECK_FALSE (AllEnded (panel.calls));
    panel.MoveTo (kDriveDial + Place{ 20, 0 });
    panel.Release ();
    CHECK (panel.Value (kDrive) == doctest::Approx (0.8).epsilon (0.02));
    panel.CheckOneEdit (kDrive);
}

TEST_CASE ("Gestures: an EQ marker moves frequency and gain, with shift one of them, with alt its band's Q")
{
    PanelInWindow panel;
    Place marker{ 408, 90 }; // 1 kHz, 0 dB; a row of the plot is 40 / 56 dB
    panel.Drag ({ marker, marker + Place{ 12, -7 } });
    std::set<std::uint32_t> moved;
    for (const auto& gesture : panel.TakeGestures ())
        moved.insert (gesture.id);
    CHECK (moved == std::set<std::uint32_t>{ kMidF, kMidG });
    CHECK (std::stod (panel.Text (kMidG)) == doctest::Approx (5.0));

    marker = marker + Place{ 12, -7 };
    panel.While (key::kShift, [&] { panel.Drag ({ marker, marker + Place{ 10, 6 } }); });
    panel.CheckOneEdit (kMidF);
    const double q = panel.Plain (kMidQ);
    marker = marker + Place{ 10, 0 };
    panel.While (key::kAlt, [&] { panel.Drag ({ marker, marker + Place{ 4, -3 } }); });
    panel.CheckOneEdit (kMidQ);
    CHECK (panel.Plain (kMidQ) == doctest::Approx (q + 7));
    panel.Wheel (marker, 1);
    panel.CheckOneEdit (kMidG);
}

TEST_CASE ("Gestures: meters move while sound passes and sink when it stops")
{
    PanelInWindow panel;
    const Area meter{ 512, 59, 5, 72 };
    const auto silent = panel.Look (meter);
    auto& instance = panel.instance;
    instance.Setup (48000.0, 480, Vst::kRealtime);
    instance.Activate ();
    std::vector<float> sound (480, 0.5f);
    const float* in = sound.data ();
    float* out = sound.data ();
    std::vector<host::ParameterPoint> meters;
    const auto process = [&]
    {
        std::ranges::fill (sound, 0.5f);
        instance.Process ({ { &in, 1 }, { &out, 1 }, 480, {} }, &meters);
        for (const auto& point : meters)
            instance.Parameters ().SetNormalized (point.id, point.value);
        return panel.LooksOtherThan (silent, meter);
    };
    CHECK (panel.Until (process));
    instance.Deactivate ();
    CHECK (panel.Until ([&] { return panel.Look (meter) == silent; }, 10s));
    CHECK (panel.calls.empty ());
}

TEST_CASE ("Gestures: a value from the host is shown and not sent back")
{
    PanelInWindow panel;
    const Area drive{ 174, 163, 56, 72 };
    const auto before = panel.Look (drive);
    panel.instance.Parameters ().SetNormalized (kDrive, 0.9);
    CHECK (panel.Until ([&] { return panel.LooksOtherThan (before, drive); }));
    panel.Settle ();
    CHECK (panel.calls.empty ());
    panel.instance.Parameters ().SetNormalized (kMorph, 0.4);
    panel.Settle ();
    for (const auto& call : panel.calls)
        CHECK (call.id != kMorph);
}

TEST_CASE ("Gestures: the right button asks the host for its menu and nothing else")
{
    PanelInWindow panel;
    const Place places[]{ kAttackKnob, kMorphDial, kKneeSoft };
    const std::uint32_t ids[]{ kAttack, kMorph, kKnee };
    for (std::size_t i = 0; i < 3; ++i)
    {
        panel.menus.clear ();
        panel.Click (places[i], UserInput::right);
        REQUIRE (panel.menus.size () == 1);
        CHECK (panel.menus[0].parameter == ids[i]);
        CHECK (panel.menus[0].x == places[i].x);
        CHECK (panel.menus[0].y == places[i].y);
    }
    CHECK (panel.calls.empty ());
}

TEST_CASE ("Gestures: on the empty panel the host's menu offers scales, kept for the next window")
{
    {
        PanelInWindow panel;
        panel.Click (kEmpty, UserInput::right);
        REQUIRE (panel.menus.size () == 1);
        CHECK_FALSE (panel.menus[0].parameter);
        const auto& items = panel.menus[0].items;
        const auto twice = std::ranges::find_if (items, [] (const std::string& item)
                                                 { return item.find ("200") != std::string::npos; });
        REQUIRE (twice != items.end ());
        panel.menuChoice = *twice;
        panel.Click (kEmpty, UserInput::right);
        CHECK (panel.Until ([&] { return panel.window.Width () == 2 * kPanel.width; }));
        panel.scale = 2.0;
        panel.Click (kCompressorSwitch);
        CHECK (panel.Value (kCompressorBypass) == 1.0);
    }
    PanelInWindow next;
    CHECK (next.window.Width () == 2 * kPanel.width);
    std::filesystem::remove_all (Desktop::Get ().home.Path ());
}

} // namespace tessaly::test
