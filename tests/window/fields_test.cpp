#include "clipboard_peer.h"
#include "panel_in_window.h"

namespace tessaly::test
{

TEST_CASE ("Fields: a double click opens a field that takes the keyboard and gives it back")
{
    PanelInWindow panel;
    const double before = panel.Value (kAttack);
    panel.DoubleClick (kAttackText);
    CHECK (panel.HasFocus ());
    panel.MoveTo (kEmpty);
    SUBCASE ("return takes the value over, as one edit")
    {
        panel.Type ("20.0");
        CHECK (panel.Value (kAttack) == before);
        panel.Key (key::kReturn);
        CHECK (std::stod (panel.Text (kAttack)) == doctest::Approx (20.0).epsilon (0.1));
        CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
        const auto gestures = panel.TakeGestures ();
        REQUIRE (gestures.size () == 1);
        CHECK (gestures[0].id == kAttack);
        CHECK (gestures[0].performs == 1);
    }
    SUBCASE ("escape leaves it as it was")
    {
        panel.Type ("20.0");
        panel.Key (key::kEscape);
        CHECK (panel.Value (kAttack) == before);
    }
    SUBCASE ("a press elsewhere leaves it as it was")
    {
        panel.Type ("20.0");
        panel.Click (kEmpty);
        CHECK (panel.Value (kAttack) == before);
    }
    SUBCASE ("a change from the host closes it")
    {
        panel.instance.Parameters ().SetNormalized (kRelease, 0.123);
        panel.Settle ();
    }
    CHECK (panel.Until ([&] { return !panel.HasFocus (); }));
    CHECK (panel.window.TakeKeysForHost ().empty ());
    panel.Key ('a');
    CHECK (panel.window.TakeKeysForHost ().size () == 1);
}

TEST_CASE ("Fields: a press beside a field is a gesture like any other")
{
    PanelInWindow panel;
    panel.DoubleClick (kAttackText);
    panel.Type ("20.0");
    SUBCASE ("on a dial")
    {
        panel.Drag ({ kDriveDial + Place{ -20, 0 }, kDriveDial + Place{ 0, -20 }, kDriveDial + Place{ 20, 0 } });
        CHECK (panel.Value (kDrive) == doctest::Approx (0.8).epsilon (0.02));
    }
    SUBCASE ("on a marker")
    {
        const Place mid{ 408, 90 }; // 1 kHz, 0 dB
        panel.Drag ({ mid, mid + Place{ 0, 8 }, mid + Place{ 0, -8 } });
        CHECK (panel.Plain (kMidG) > 180.0); // of 0 dB
    }
    const auto gestures = panel.TakeGestures ();
    REQUIRE (gestures.size () == 1);
    CHECK (gestures[0].ended);
}

TEST_CASE ("Fields: text is pasted from another program and copied to it")
{
    PanelInWindow panel;
    {
        const host::ClipboardOwner other ("25.0");
        panel.DoubleClick (kAttackText);
        panel.TypeWithControl ("av"); // all, paste
        panel.Until ([] { return false; }, 200ms);
        panel.Key (key::kReturn);
    }
    CHECK (std::stod (panel.Text (kAttack)) == doctest::Approx (25.0).epsilon (0.1));

    panel.DoubleClick (kAttackText);
    panel.TypeWithControl ("ac");
    auto pasted = host::PasteElsewhere ();
    CHECK (panel.Until ([&] { return pasted.wait_for (0s) == std::future_status::ready; }));
    const auto text = pasted.get ();
    REQUIRE (text);
    CHECK (std::stod (*text) == doctest::Approx (std::stod (panel.Text (kAttack))));
}

TEST_CASE ("Fields: the file dialog opens a folder, chooses a set, and OK loads it")
{
    PanelInWindow panel;
    const auto closed = panel.Look (kDialog);
    panel.Click (kName);
    CHECK (panel.LooksOtherThan (closed, kDialog));
    panel.TakeGestures ();
    panel.Wheel (kMorphDial, 1);
    panel.Wheel (kAttackKnob, 2);
    CHECK (panel.calls.empty ());

    SUBCASE ("OK")
    {
        panel.Click (DialogFolderIcon (0));
        panel.Click (DialogLine (1));
        panel.Click (kDialogOk);
        CHECK (panel.Until ([&] { return !panel.calls.empty () && AllEnded (panel.calls); }));
        CHECK (panel.LooksOtherThan (closed, kDialog));
        CHECK (panel.TakeGestures ().size () > 5);
    }
    SUBCASE ("a double click on a file")
    {
        panel.DoubleClick (DialogLine (0));        // opens the folder
        panel.Until ([] { return false; }, 600ms); // longer than a double click
        panel.DoubleClick (DialogLine (2));
        CHECK (panel.Until ([&] { return !panel.calls.empty () && AllEnded (panel.calls); }));
    }
    SUBCASE ("a state from the host")
    {
        panel.instance.LoadState (panel.instance.SaveState ());
        panel.Settle ();
        panel.Click (kDialogCancel);
    }
    SUBCASE ("Cancel")
    {
        panel.Click (DialogFolderIcon (0));
        panel.Click (kDialogCancel);
        panel.MoveTo (kEmpty);
        CHECK (panel.Until ([&] { return panel.Look (kDialog) == closed; }));
        CHECK (panel.calls.empty ());
    }
    SUBCASE ("escape")
    {
        panel.Click (DialogLine (0));
        panel.Key (key::kEscape);
        panel.MoveTo (kEmpty);
        CHECK (panel.Until ([&] { return panel.Look (kDialog) == closed; }));
    }
    panel.Wheel (kDriveDial, panel.Plain (kDrive) < 2.0 ? 1 : -1);
    CHECK_FALSE (panel.calls.empty ());
}

TEST_CASE ("Fields: the product's name opens the about picture, a click closes it")
{
    PanelInWindow panel;
    panel.MoveTo (kEmpty);
    const auto closed = panel.Look ();
    panel.Click (kProductName);
    CHECK (panel.LooksOtherThan (closed));
    panel.Wheel (kDriveDial, 1);
    panel.Click (kDriveDial);
    CHECK (panel.calls.empty ());
    panel.MoveTo (kEmpty);
    CHECK (panel.Until ([&] { return panel.Look () == closed; }));
}

} // namespace tessaly::test
