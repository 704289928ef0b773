#include "panel_in_window.h"

#include <filesystem>
#include <fstream>

namespace tessaly::test
{

using namespace Steinberg;

namespace
{

/// What a process and its X server hold, which a closed window gives back.
struct Holdings
{
    std::size_t files;
    std::size_t windows;
    std::size_t handlers;
    bool operator== (const Holdings&) const = default;
};

Holdings Count (const PanelInWindow& panel)
{
    const auto& x = Desktop::Get ().x;
    const std::filesystem::directory_iterator files ("/proc/self/fd");
    return { static_cast<std::size_t> (std::distance (begin (files), end (files))),
             x.Children (x.Screen ().root).size (), panel.loop.EventHandlerCount () + panel.loop.TimerCount () };
}

double ResidentMegabytes ()
{
    std::ifstream statm ("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    statm >> total >> resident;
    return resident * 4096.0 / 1e6;
}

int OpeningsToTry ()
{
    const char* number = std::getenv ("TESSALY_OPENINGS");
    return number ? std::atoi (number) : 30;
}

/// The panel reacts: the wheel over the drive dial, which has no ring, edits it.
void CheckWorks (PanelInWindow& panel)
{
    const double before = panel.Plain (kDrive);
    panel.Wheel (kDriveDial, before < 2.0 ? 1 : -1);
    CHECK (panel.Until ([&] { return panel.Plain (kDrive) != before; }));
}

} // namespace

TEST_CASE ("Window: an editor has its size before it is attached and asks to be shown")
{
    PanelInWindow panel;
    CHECK (panel.window.Width () == kPanel.width);
    CHECK (panel.window.Height () == kPanel.height);
    CHECK (panel.window.View ().canResize () == kResultFalse);
    const auto info = Desktop::Get ().x.Numbers (panel.window.EditorWindow (), "_XEMBED_INFO");
    REQUIRE (info.size () >= 2);
    CHECK ((info[1] & 1) == 1);
    CHECK (Desktop::Get ().x.IsShown (panel.window.EditorWindow ()));

    auto colors = panel.Look ().pixels;
    std::ranges::sort (colors);
    CHECK (std::ranges::unique (colors).begin () - colors.begin () > 100);

    ViewRect odd{ 0, 0, 17, 900 };
    panel.window.View ().onSize (&odd);
    ViewRect size;
    panel.window.View ().getSize (&size);
    CHECK (size.getWidth () == kPanel.width);
    panel.window.View ().onSize (&size);
    CheckWorks (panel);
}

TEST_CASE ("Window: opened again and again it leaves nothing behind")
{
    PanelInWindow panel;
    panel.window.Close ();
    panel.Open ();
    panel.window.Close ();
    const auto before = Count (panel);
    const int openings = OpeningsToTry ();
    [[maybe_unused]] double settled = 0.0;
    for (int i = 0; i < openings; ++i)
    {
        panel.window.Open (panel.instance.Controller ());
        if (i % 2 == 0)
            panel.loop.RunFor (i % 4 == 0 ? 100ms : 10ms);
        panel.window.Close ();
        if (i == openings / 3)
            settled = ResidentMegabytes ();
    }
    CHECK (Count (panel) == before);
#ifndef __SANITIZE_ADDRESS__ // which keeps what was freed for a while
    CHECK (ResidentMegabytes () - settled < 2.0);
#endif
    panel.Open ();
    CheckWorks (panel);
}

#ifndef __SANITIZE_ADDRESS__
TEST_CASE ("Window: the pointer may pass over it for hours")
{
    PanelInWindow panel;
    const auto pass = [&]
    {
        for (int i = 0; i < 4000; ++i)
        {
            Desktop::Get ().user.MoveTo (kEmpty.x + i % 20, kEmpty.y);
            panel.loop.RunOnce (0ms);
        }
    };
    pass ();
    const double settled = ResidentMegabytes ();
    pass ();
    CHECK (ResidentMegabytes () - settled < 0.4); // an unread answer to each move takes a megabyte
}
#endif

TEST_CASE ("Window: of two editors either one goes on when the other closes")
{
    for (const bool firstCloses : { true, false })
    {
        PanelInWindow first;
        std::optional<PanelInWindow> second{ std::in_place, host::WindowOptions{ .left = 600 } };
        PanelInWindow& stays = firstCloses ? *second : first;
        PanelInWindow& goes = firstCloses ? first : *second;
        goes.window.Close ();
        // Only the loop of the open window is run from here on.
        CheckWorks (stays);
    }
}

TEST_CASE ("Window: two editors of one controller show the same")
{
    PanelInWindow panel;
    host::HostWindow second (panel.loop, { .left = 600 });
    second.Open (panel.instance.Controller ());
    CheckWorks (panel);
    CHECK (panel.Until ([&] { return panel.Look () == host::ReadPicture (Desktop::Get ().x, second.Window ()); }));
    panel.window.Close ();
    second.Close ();
    panel.Open ();
    CheckWorks (panel);
}

TEST_CASE ("Window: closed in the middle of anything it ends all edits and opens anew")
{
    PanelInWindow panel;
    const auto fresh = panel.Look (kOverlaySpot);
    SUBCASE ("a drag of the morph dial")
    {
        panel.MoveTo (kMorphDial + Place{ -20, 0 });
        panel.Press ();
        panel.MoveTo (kMorphDial + Place{ 0, -20 });
        CHECK_FALSE (panel.calls.empty ());
    }
    SUBCASE ("an open field")
    {
        panel.DoubleClick (kAttackText);
        CHECK (panel.HasFocus ());
    }
    SUBCASE ("a ring that grows")
    {
        panel.MoveTo (kAttackKnob);
        Desktop::Get ().user.Press (UserInput::left);
        panel.loop.RunFor (60ms);
    }
    SUBCASE ("the file dialog")
    {
        panel.Click (kName);
    }
    panel.window.Close ();
    Desktop::Get ().user.Release (UserInput::left);
    CHECK (panel.Until ([&] { return AllEnded (panel.calls); }));
    panel.MoveTo (kEmpty);
    panel.Open ();
    CHECK (panel.Until ([&] { return panel.Look (kOverlaySpot) == fresh; }));
    CheckWorks (panel);
}

TEST_CASE ("Window: faulty hosts are survived")
{
    PanelInWindow panel;
    SUBCASE ("one that destroys the window without removed")
    {
        panel.window.DestroyWindowUnderView ();
        panel.Settle ();
        panel.window.Close ();
    }
    SUBCASE ("one that never runs its loop")
    {
        panel.window.Close ();
        for (int i = 0; i < 3; ++i)
        {
            panel.window.Open (panel.instance.Controller ());
            Desktop::Get ().user.Wheel (1);
            panel.window.Close ();
        }
    }
    SUBCASE ("one that attaches twice")
    {
        CHECK (panel.window.View ().attached (reinterpret_cast<void*> (std::uintptr_t{ panel.window.Window () }),
                                              kPlatformTypeX11EmbedWindowID) != kResultOk);
        panel.window.Close ();
    }
    SUBCASE ("one that keeps the view beyond its window")
    {
        const IPtr<IPlugView> kept (&panel.window.View ());
        panel.window.Close ();
        panel.Settle ();
        ViewRect size;
        kept->onSize (&size);
        kept->onFocus (true);
        kept->onKeyDown ('a', 0, 0);
        kept->onWheel (1.0f);
    }
    panel.Open ();
    CheckWorks (panel);
}

TEST_CASE ("Window: the run loop may come from the host's context alone")
{
    PanelInWindow panel ({ .offersRunLoop = false });
    CheckWorks (panel);
}

TEST_CASE ("Window: the module can be unloaded and loaded again after windows")
{
    for (int i = 0; i < 3; ++i)
    {
        PanelInWindow panel;
        CheckWorks (panel);
        panel.DoubleClick (kAttackText); // text is what the longest-lived libraries draw
        panel.Key (key::kEscape);
    }
}

TEST_CASE ("Window: every scale of the host moves size, picture and mouse together")
{
    for (const double scale : { 1.0, 1.25, 1.5, 2.0, 3.0 })
        for (const bool late : { false, true })
        {
            CAPTURE (scale);
            CAPTURE (late);
            PanelInWindow panel ({ .scale = late ? 0.0 : scale });
            if (late)
                CHECK (panel.window.TellScale (scale));
            panel.scale = scale;
            panel.Settle ();
            CHECK (panel.window.Width () == std::lround (kPanel.width * scale));
            CHECK (panel.window.Height () == std::lround (kPanel.height * scale));

            // A press at the last pixel of the switch's area works, beside it does not.
            const Place last{ 43, 290 };
            panel.Click (last);
            CHECK (panel.Value (kCompressorBypass) == 1.0);
            panel.Click ({ 44, 290 });
            CHECK (panel.Value (kCompressorBypass) == 1.0);
            panel.Click ({ 17, 275 });
            CHECK (panel.Value (kCompressorBypass) == 0.0);
        }
}

} // namespace tessaly::test
