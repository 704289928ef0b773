#include "panel_in_window.h"
#include "pluginterfaces/base/keycodes.h"

#include <set>

namespace tessaly::test
{

using namespace Steinberg;

namespace
{

/// Exactly one edit, of this parameter, that has ended with this many steps or more.
void CheckOneEdit (const std::vector<Gesture>& gestures, std::uint32_t id)
{
    REQUIRE (gestures.size () == 1);
    CHECK (gestures[0].id == id);
    CHECK (gestures[0].performs >= 1);
    CHECK (gestures[0].ended);
}

} // namespace

TEST_CASE ("Gestures: the wheel opens a small dial's ring, then edits a step a notch")
{
    PanelInWindow panel;
    for (const auto& dial : kSmallDials)
    {
        CAPTURE (dial.id);
        const double before = panel.Plain (dial.id);
        const int way = before > 10.0 ? -1 : 1;
        panel.Wheel (dial.knob, way);
        CHECK (panel.Plain (dial.id) == before);
        panel.Wheel (dial.knob, 2 * way);
        CHECK (panel.Plain (dial.id) == doctest::Approx (before + 2 * way));
        panel.Key (key::kEscape);
        panel.MoveTo (kEmpty);
        CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
        CheckOneEdit (panel.TakeGestures (), dial.id);
    }
}

TEST_CASE ("Gestures: a small dial is turned on its ring from where the pointer leaves the knob")
{
    PanelInWindow panel;
    for (const auto& dial : kSmallDials)
    {
        CAPTURE (dial.id);
        panel.instance.Parameters ().SetNormalized (dial.id, 0.5);
        panel.Settle ();
        panel.TakeGestures ();
        const double before = panel.Value (dial.id);
        panel.MoveTo (dial.knob);
        panel.Press ();
        panel.MoveTo (dial.knob + Place{ 0, -10 }); // within the knob's circle
        CHECK (panel.Value (dial.id) == before);
        panel.MoveTo (dial.knob + Place{ 0, -30 });
        panel.MoveTo (dial.knob + Place{ 30, 0 }); // a quarter turn to the right
        panel.Release ();
        CHECK (panel.Value (dial.id) == doctest::Approx (0.8).epsilon (0.02));
        CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
        CheckOneEdit (panel.TakeGestures (), dial.id);
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
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));

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

TEST_CASE ("Gestures: an EQ marker moves its band's frequency and gain")
{
    PanelInWindow panel;
    // The plot: 20 Hz to 20 kHz over 302 to 490, +20 to -20 dB over 62 to 118.
    const auto markerOf = [&] (Id frequency, Id gain)
    {
        const double hz = std::stod (panel.Text (frequency)) * (panel.Text (frequency).ends_with ("k") ? 1000.0 : 1.0);
        const double db = std::stod (panel.Text (gain));
        return Place{ static_cast<int> (std::lround (302 + 188 * std::log10 (hz / 20) / 3)),
                      static_cast<int> (std::lround (118 - 56 * (db + 20) / 40)) };
    };
    const Place low = markerOf (kLowF, kLowG);
    panel.Drag ({ low, low + Place{ 12, -8 } });
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    std::set<std::uint32_t> moved;
    for (const auto& gesture : panel.TakeGestures ())
        moved.insert (gesture.id);
    CHECK (moved == std::set<std::uint32_t>{ kLowF, kLowG });
    const Place now = markerOf (kLowF, kLowG);
    CHECK (std::abs (now.x - low.x - 12) <= 3); // frequencies come in steps
    CHECK (std::abs (now.y - low.y + 8) <= 1);

    panel.Wheel (now, 1);
    CHECK (markerOf (kLowF, kLowG).y <= now.y);
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    CheckOneEdit (panel.TakeGestures (), kLowG);
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

TEST_CASE ("Gestures: the knee takes the place that is pressed")
{
    PanelInWindow panel;
    panel.Click (kKneeHard);
    CHECK (panel.Value (kKnee) == 1.0);
    panel.Click (kKneeSoft);
    CHECK (panel.Value (kKnee) == 0.0);
    CHECK (panel.TakeGestures ().size () == 2);
}

TEST_CASE ("Gestures: a read-out is dragged up and down, and reset with the control key")
{
    PanelInWindow panel;
    const double before = panel.Plain (kAttack);
    const int way = before > 10.0 ? 5 : -5; // down where there is room
    panel.Drag ({ kAttackText, kAttackText + Place{ 0, way } });
    CHECK (panel.Plain (kAttack) == doctest::Approx (before - way));
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    CheckOneEdit (panel.TakeGestures (), kAttack);
    panel.MoveTo (kEmpty);
    Desktop::Get ().user.KeyDown (key::kControl);
    panel.Click (kAttackText);
    Desktop::Get ().user.KeyUp (key::kControl);
    panel.Settle ();
    CHECK (panel.Plain (kAttack) == doctest::Approx (before));
}

TEST_CASE ("Gestures: keys move what was touched last, others reach the host")
{
    PanelInWindow panel;
    panel.Key ('a');
    CHECK (panel.window.TakeKeysForHost ().size () == 1);
    panel.Wheel (kDriveDial, 1);
    const double before = panel.Plain (kDrive);
    panel.Key (key::kUp);
    CHECK (panel.Plain (kDrive) == doctest::Approx (before + 1));
    panel.Key (key::kPageUp);
    CHECK (panel.Plain (kDrive) == doctest::Approx (before + 11));
    CHECK (panel.window.TakeKeysForHost ().empty ());
    panel.Key ('a');
    CHECK (panel.window.TakeKeysForHost ().size () == 1);
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
}

TEST_CASE ("Gestures: a key that is held repeats within one edit")
{
    PanelInWindow panel;
    panel.Wheel (kDriveDial, -1);
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    panel.TakeGestures ();
    Desktop::Get ().user.KeyDown (key::kUp);
    CHECK (panel.Until ([&] { return panel.calls.size () >= 5; }));
    Desktop::Get ().user.KeyUp (key::kUp);
    panel.Settle ();
    CheckOneEdit (panel.TakeGestures (), kDrive);
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

TEST_CASE ("Gestures: wheel and keys in the middle of a drag do not divide its edit")
{
    PanelInWindow panel;
    panel.MoveTo (kDriveDial + Place{ -20, 0 });
    panel.Press ();
    panel.MoveTo (kDriveDial + Place{ 0, -20 });
    Desktop::Get ().user.Wheel (1);
    panel.Key ('a');
    panel.Key (key::kUp);
    panel.MoveTo (kDriveDial + Place{ 20, 0 });
    panel.Release ();
    CHECK (panel.Value (kDrive) == doctest::Approx (0.8).epsilon (0.02));
    CheckOneEdit (panel.TakeGestures (), kDrive);
}

TEST_CASE ("Gestures: an edit that is held still for long stays open")
{
    PanelInWindow panel;
    panel.MoveTo (kDriveDial + Place{ -20, 0 });
    panel.Press ();
    panel.MoveTo (kDriveDial + Place{ 0, -20 });
    panel.Until ([] { return false; }, 2500ms); // a held edit ends by itself after two seconds
    CHECK_FALSE (AllEnded (panel.calls));
    panel.Release ();
    CheckOneEdit (panel.TakeGestures (), kDrive);
}

TEST_CASE ("Gestures: a ring that was only clicked closes when the pointer has left it")
{
    PanelInWindow panel;
    panel.MoveTo (kEmpty);
    const Area around{ 36, 60, 107, 70 };
    const auto closed = panel.Look (around);
    panel.Click (kAttackKnob);
    CHECK (panel.LooksOtherThan (closed, around));
    panel.MoveTo (kEmpty);
    CHECK (panel.Until ([&] { return panel.Look (around) == closed; }));
    CHECK (panel.calls.empty ());
}

TEST_CASE ("Gestures: shift locks a marker to one axis, alt turns to the band's Q")
{
    PanelInWindow panel;
    const Place mid{ 408, 90 }; // 1 kHz, 0 dB
    panel.MoveTo (mid);
    Desktop::Get ().user.KeyDown (key::kShift);
    panel.Press ();
    panel.MoveTo (mid + Place{ 3, 2 });
    CHECK (panel.calls.empty ());
    panel.MoveTo (mid + Place{ 10, 6 });
    panel.Release ();
    Desktop::Get ().user.KeyUp (key::kShift);
    CheckOneEdit (panel.TakeGestures (), kMidF);

    const double q = panel.Plain (kMidQ);
    const Place moved = mid + Place{ 10, 0 };
    panel.MoveTo (moved);
    Desktop::Get ().user.KeyDown (key::kAlt);
    panel.Press ();
    panel.MoveTo (moved + Place{ 4, -3 });
    panel.Release ();
    Desktop::Get ().user.KeyUp (key::kAlt);
    CheckOneEdit (panel.TakeGestures (), kMidQ);
    CHECK (panel.Plain (kMidQ) == doctest::Approx (q + 7));
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

TEST_CASE ("Gestures: keys that the host hands to the view work too")
{
    PanelInWindow panel;
    panel.Wheel (kDriveDial, 1);
    const double before = panel.Plain (kDrive);
    auto& view = panel.window.View ();
    CHECK (view.onKeyDown (0, KEY_UP, 0) == kResultTrue);
    CHECK (view.onKeyDown (0, KEY_UP, 0) == kResultTrue);
    CHECK (view.onKeyUp (0, KEY_UP, 0) == kResultTrue);
    CHECK (view.onKeyDown ('q', 0, 0) == kResultFalse);
    CHECK (panel.Plain (kDrive) == doctest::Approx (before + 2));
    CHECK (view.onFocus (true) == kResultFalse);
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
