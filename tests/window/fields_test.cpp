#include "clipboard_peer.h"
#include "panel_in_window.h"

namespace tessaly::test
{

namespace
{

bool ClipboardHasOwner ()
{
    const auto& x = Desktop::Get ().x;
    const auto question = xcb_get_selection_owner (x.Get (), x.Atom ("CLIPBOARD"));
    const host::ReplyPtr<xcb_get_selection_owner_reply_t> reply (
        xcb_get_selection_owner_reply (x.Get (), question, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

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
        panel.CheckOneEdit (kAttack);
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
    panel.Drag ({ kDriveDial + Place{ -20, 0 }, kDriveDial + Place{ 0, -20 }, kDriveDial + Place{ 20, 0 } });
    CHECK (panel.Value (kDrive) == doctest::Approx (0.8).epsilon (0.02));
    panel.CheckOneEdit (kDrive);
}

TEST_CASE ("Fields: text is pasted from another program and copied to it")
{
    PanelInWindow panel;
    {
        const host::ClipboardOwner other ("25.0");
        panel.DoubleClick (kAttackText);
        panel.While (key::kControl, [&] { panel.Type ("av"); }); // all, paste
        panel.Key (key::kReturn);
        CHECK (panel.Until ([&] { return std::abs (std::stod (panel.Text (kAttack)) - 25.0) < 2.5; }));
    }

    panel.DoubleClick (kAttackText);
    panel.While (key::kControl, [&] { panel.Type ("ac"); });
    CHECK (panel.Until (ClipboardHasOwner));
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
    const auto name = panel.Look (kNameArea);
    panel.Click (kName);
    CHECK (panel.Until ([&] { return panel.LooksOtherThan (closed, kDialog); }));
    panel.TakeGestures ();
    panel.Wheel (kMorphDial, 1);
    panel.Wheel (kAttackKnob, 2);
    CHECK (panel.calls.empty ());

    SUBCASE ("OK")
    {
        panel.Click (DialogFolderIcon (0));
        panel.Click (DialogLine (1));
        panel.Click (kDialogOk);
        CHECK (panel.Until ([&] { return panel.LooksOtherThan (name, kNameArea); }));
        CHECK (panel.TakeGestures ().size () > 5);
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
    panel.Wheel (kDriveDial, panel.Plain (kDrive) < 2.0 ? 1 : -1);
    CHECK (panel.Until ([&] { return !panel.calls.empty (); }));
}

} // namespace tessaly::test
