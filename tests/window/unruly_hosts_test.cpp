#include "host_error.h"
#include "panel_in_window.h"

#include <filesystem>

namespace tessaly::test
{

using Kind = host::HandlerCall::Kind;

namespace
{

/// Another program, with a window that has taken the input focus.
struct OtherProgram
{
    OtherProgram ()
    {
        const std::uint32_t hides = 1; // from window managers
        xcb_create_window (x.Get (), XCB_COPY_FROM_PARENT, window, x.Screen ().root, 2000, 1000, 50, 50, 0,
                           XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &hides);
        xcb_map_window (x.Get (), window);
        x.SetFocus (window);
    }

    host::XConnection x;
    xcb_window_t window = xcb_generate_id (x.Get ());
};

} // namespace

TEST_CASE ("Focus: a drag ends when another program takes the focus")
{
    PanelInWindow panel;
    const struct
    {
        Place from;
        Place to;
        Place beyond;
        Id id;
    } drags[]{
        { { 408, 90 }, { 412, 84 }, { 440, 100 }, kMidF },
        { kDriveDial + Place{ -20, 0 }, kDriveDial + Place{ 0, -20 }, kDriveDial + Place{ 20, 0 }, kDrive },
        { kMorphDial + Place{ -30, 0 }, kMorphDial + Place{ 0, -30 }, kMorphDial + Place{ 30, 0 }, kMorph },
        { kAttackKnob, kAttackKnob + Place{ 0, -30 }, kAttackKnob + Place{ 30, 0 }, kAttack },
        { kAttackText, kAttackText + Place{ 0, 8 }, kAttackText + Place{ 0, -8 }, kAttack },
    };
    for (const auto& drag : drags)
    {
        CAPTURE (drag.id);
        panel.MoveTo (drag.from);
        panel.Press ();
        panel.MoveTo (drag.to);
        const auto isHeld = [&]
        {
            return std::ranges::any_of (Gestures (panel.calls), [&] (const Gesture& gesture)
                                        { return gesture.id == drag.id && !gesture.ended; });
        };
        CHECK (isHeld ());
        const OtherProgram other;
        CHECK (panel.Until ([&] { return !isHeld (); }, 1s)); // two seconds would end it anyway
        CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
        const double left = panel.Value (drag.id);
        panel.calls.clear ();
        panel.MoveTo (drag.beyond);
        panel.Release ();
        CHECK (panel.Value (drag.id) == left);
        CHECK (panel.calls.empty ());
        panel.MoveTo (kEmpty);
        other.x.SetFocus (panel.window.Window ());
        panel.Settle ();
    }
}

TEST_CASE ("Focus: a field closes when another program takes the focus")
{
    PanelInWindow panel;
    const double before = panel.Value (kAttack);
    panel.DoubleClick (kAttackText);
    panel.Type ("20.0");
    const OtherProgram other;
    panel.Settle ();
    CHECK (other.x.Focus () == other.window);
    panel.Key (key::kReturn);
    CHECK (panel.Value (kAttack) == before);
    CHECK (AllEnded (panel.calls));
}

TEST_CASE ("Hosts: one may close the window from within anything that the panel tells it")
{
    PanelInWindow panel;
    const auto state = panel.instance.SaveState ();
    for (const auto kind : { Kind::beginEdit, Kind::performEdit, Kind::endEdit })
        for (const Place grip :
             { kDriveDial + Place{ -20, 0 }, kMorphDial + Place{ -30, 0 }, kAttackText, kKneeHard, Place{ 408, 90 } })
        {
            CAPTURE (static_cast<int> (kind));
            CAPTURE (grip.x);
            panel.onCall = [&] (const host::HandlerCall& call)
            {
                if (call.kind == kind)
                    panel.window.Close ();
            };
            panel.MoveTo (grip);
            panel.Press ();
            panel.MoveTo (grip + Place{ 6, -12 });
            panel.Release ();
            CHECK (panel.Until ([&] { return !panel.window.IsOpen (); }));
            panel.onCall = nullptr;
            CHECK (AllEnded (panel.calls)); // and each call within its edit
            panel.MoveTo (kEmpty);
            panel.instance.LoadState (state);
            panel.Open ();
        }
    panel.Click (kCompressorSwitch);
    CHECK (panel.Value (kCompressorBypass) == 1.0);
}

TEST_CASE ("Hosts: one may close the window, or change the scale, from within an edit by wheel, key or field")
{
    PanelInWindow panel;
    bool scales = false;
    double scale = 1.0;
    const auto act = [&] (const host::HandlerCall& call)
    {
        if (call.kind == Kind::performEdit && scales)
            panel.window.TellScale (scale = 3.0 - scale);
        else if (call.kind == Kind::performEdit)
            panel.window.Close ();
    };
    const std::function<void ()> edits[]{
        [&] { panel.Wheel (kDriveDial, panel.Value (kDrive) > 0.5 ? -1 : 1); },
        [&]
        {
            panel.Wheel (kDriveDial, panel.Value (kDrive) > 0.5 ? -1 : 1);
            panel.onCall = act;
            panel.Key (panel.Value (kDrive) > 0.5 ? key::kDown : key::kUp);
        },
        [&]
        {
            panel.DoubleClick (kAttackText);
            panel.onCall = act;
            panel.Type (panel.Plain (kAttack) > 10.0 ? "5.0" : "20.0");
            panel.Key (key::kReturn);
        },
    };
    for (const bool withScale : { true, false })
        for (std::size_t i = 0; i < std::size (edits); ++i)
        {
            CAPTURE (withScale);
            CAPTURE (i);
            scales = withScale;
            panel.scale = scale;
            panel.calls.clear ();
            panel.onCall = i == 0 ? act : std::function<void (const host::HandlerCall&)>{};
            edits[i]();
            panel.onCall = nullptr;
            CHECK (panel.Until ([&] { return !panel.calls.empty () && AllEnded (panel.calls); }));
            CHECK (panel.window.IsOpen () == withScale);
            CHECK (panel.window.Width () == static_cast<int> (kPanel.width * scale));
            if (!panel.window.IsOpen ())
                scale = 1.0, panel.scale = 1.0, panel.Open ();
        }
}

TEST_CASE ("Hosts: one may close the window when it is told of a size")
{
    PanelInWindow panel;
    host::HostWindow unruly (panel.loop, { .left = 600, .closesOnResize = true });
    CHECK_THROWS_AS (unruly.Open (panel.instance.Controller ()), host::HostError);
    CHECK_FALSE (unruly.IsOpen ());
    panel.Click (kCompressorSwitch);
    CHECK (panel.Value (kCompressorBypass) == 1.0);
}

TEST_CASE ("Hosts: without menus of their own, the panel's offers the scale and keeps the choice")
{
    {
        PanelInWindow panel ({}, false);
        const auto closed = panel.Look ();
        panel.Click (kAttackKnob, UserInput::right);
        panel.MoveTo (kEmpty);
        CHECK (panel.Until ([&] { return panel.Look () == closed; })); // none on a parameter
        panel.Click (kEmpty, UserInput::right);
        CHECK (panel.LooksOtherThan (closed));
        for (int i = 0; i < 3; ++i)
            panel.Key (key::kDown);
        panel.Key (key::kReturn);
        CHECK (panel.Until ([&] { return panel.window.Width () != kPanel.width; }));
        CHECK (panel.window.Width () > kPanel.width);
        CHECK (panel.calls.empty ());
    }
    PanelInWindow next ({}, false);
    CHECK (next.window.Width () > kPanel.width);
    const auto scale = static_cast<double> (next.window.Width ()) / kPanel.width;
    next.scale = scale;
    next.Click (kCompressorSwitch);
    CHECK (next.Value (kCompressorBypass) == 1.0);
    PanelInWindow told ({ .left = 1000, .scale = 1.0 }, false); // by the host: there is nothing to choose
    CHECK (told.window.Width () == kPanel.width);
    const auto closed = told.Look ();
    told.Click (kEmpty, UserInput::right);
    told.Settle ();
    CHECK (told.Look () == closed);
    std::filesystem::remove_all (Desktop::Get ().home.Path ());
}

} // namespace tessaly::test
