#include "gui_editor.h"

#include "editor_fixture.h"
#include "slider.h"
#include <atomic>
#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <thread>

using namespace tessaly;

namespace
{

constexpr std::int32_t kCommandId = 30000; // an id that is no parameter's

/// Three controls side by side, 40 pixels each, of parameters 0 and 1 and of a command, and a meter below.
struct SmallFixture : EditorFixture<>
{
    std::vector<ProbeControl*> row; // not owned: the editor's panes, as the meter
    ZControl* meter = nullptr;

    void CreateControls () override
    {
        auto& root = *GetRootView ();
        row = { AddProbe (root, { 0, 0, 40, 40 }, 0), AddProbe (root, { 40, 0, 80, 40 }, 1),
                AddProbe (root, { 80, 0, 120, 40 }, kCommandId) };
        meter = AddMeter (root, std::make_unique<ZControl> (this, ZRect{ 0, 40, 20, 60 }, 0));
        meter->SetMouseEnabled (false);
    }
};

} // namespace

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: opens with the effect's values, closes without a trace and opens again")
{
    wrapper.storage.SetNormalized (1, 0.75f);
    CHECK_FALSE (Press ({ 5, 5 }));
    for (int round = 0; round < 2; ++round)
    {
        Open ({ 10, 20 });
        Open ({ 0, 0 }); // open already
        CHECK (GetRootView ()->GetFrame () == ZRect{ 10, 20, 130, 80 });
        CHECK (row[1]->GetValue () == 0.75f);
        CHECK (rate == 96000.0);
        CHECK (NeedsRedraw ());
        CHECK (GetBitmap ("knob") == GetBitmap ("knob"));
        CHECK (GetBitmap ("missing")->GetWidth () == 0);

        SetSize (300, 200);
        CHECK (wrapper.size == ZPoint{ 300, 200 });
        CHECK (GetRootView ()->GetFrame () == ZRect{ 10, 20, 310, 220 });
        Close ();
        CHECK_FALSE (NeedsRedraw ());
        Tick ();
        CHECK (Paint ().empty ());
    }
    CHECK (wrapper.loaded == Words_t{ "knob", "missing", "knob", "missing" });

    wrapper.hasEffect = false;
    Open ({});
    CHECK (rate == 44100.0);
    SetParameter (0, 0.5f); // no effect to write to
    CHECK (row[0]->GetValue () == 0.5f);
    CHECK (wrapper.written.empty ());
}

TEST_CASE_FIXTURE (SmallFixture,
                   "ZGuiEditor: a press is captured until a second press, a refused move or its pane's end")
{
    Open ({ 10, 10 });
    CHECK (Press ({ 15, 15 }));
    CHECK (Drag ({ 500, 500 }));
    CHECK (Press ({ 55, 15 }));
    CHECK (log == Words_t{ "0 down", "0 move", "0 up", "1 down" });
    row[1]->takesMove = false;
    CHECK_FALSE (Drag ({ 55, 16 }));
    CHECK (GetCapturePane () == nullptr);
    CHECK_FALSE (Press ({ 400, 15 })); // nothing there
    CHECK (GetFocusPane () == row[1]);

    SUBCASE ("closing in mid-drag leaves nothing behind")
    {
        Press ({ 15, 15 });
        Close ();
        Open ({ 10, 10 });
        CHECK_FALSE (Drag ({ 20, 20 }));
        CHECK (GetFocusPane () == nullptr);
    }
    SUBCASE ("a press may end another control")
    {
        row[0]->onPress = [&] { Remove (row[1]); };
        CHECK (Press ({ 15, 15 }));
        CHECK (GetFocusPane () == row[0]);
        CHECK (GetControls ().GetCount () == 2);
    }
    SUBCASE ("who calls back into the mouse entries is not entered again")
    {
        log.clear ();
        row[0]->onPress = [&] { Click ({ 55, 15 }); };
        CHECK (Press ({ 15, 15 }));
        SetInputLocked (true);
        CHECK (Drag ({ 15, 16 })); // nothing moves, but the drag is still on
        CHECK (log == Words_t{ "0 down" });
    }
}

TEST_CASE_FIXTURE (SmallFixture,
                   "ZGuiEditor: the pointer enters panes on ticks, not during a drag or while a pane is modal")
{
    Open ({});
    Hover ({ 5, 5 });
    Hover ({ 45, 5 });
    Tick ();
    CHECK (row[2]->ticks == 3); // one a tick, though root and control are both registered
    Press ({ 45, 5 });
    Tick ();
    Release ({ 5, 5 });
    CHECK (log == Words_t{ "0 enter", "0 exit", "1 enter", "1 down", "1 exit", "1 up", "0 enter" });

    log.clear ();
    row[1]->opensModal = true;
    Press ({ 45, 5 });
    Tick ();
    FocusLost (); // closes what is modal
    FocusGained ();
    CHECK (log == Words_t{ "1 open", "0 exit", "1 close", "lost", "gained" });
}

TEST_CASE_FIXTURE (SmallFixture,
                   "ZGuiEditor: wheel and keys go to the modal pane, then to hover or focus, then the editor")
{
    Open ({});
    Hover ({ 45, 5 });
    CHECK (Wheel (10));
    CHECK (GetFocusPane () == row[1]);
    CHECK (wrapper.storage.GetNormalized (1) == doctest::Approx (0.1));
    CHECK_FALSE (Wheel (0)); // changes nothing, so nobody took it

    log.clear ();
    row[0]->opensModal = true;
    Press ({ 5, 5 });
    SetFocusPane (row[1]);
    CHECK (Key (kKeyReturn));
    SetFocusPane (row[0]); // asked once only
    CHECK (Key (kKeyReturn));
    row[0]->takesKeys = true;
    CHECK (Key (kKeyReturn));
    CHECK (log == Words_t{ "0 open", "0 key", "1 key", "editor key", "0 key", "editor key", "0 key" });
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: values go from control to effect, and come from outside by polling")
{
    Open ({});
    Tick ();
    changed.clear ();
    row[0]->BroadcastValue (0, 1.5f); // written within its range, shown as it is
    CHECK (wrapper.storage.GetNormalized (0) == 1.0f);
    CHECK (row[0]->GetValue () == 1.5f);
    Tick (); // and then as the effect has it
    CHECK (row[0]->GetValue () == 1.0f);
    row[2]->BroadcastValue (kCommandId, 1.0f);
    CHECK (row[2]->GetValue () == 1.0f);
    CHECK (wrapper.written.size () == 1);

    wrapper.storage.SetNormalized (1, 0.25f);
    wrapper.storage.SetNormalized (3, 0.5f); // no control bears it
    Tick ();
    Tick ();
    CHECK (changed == std::vector{ 0, 0, kCommandId, 1, 3 });

    const auto nothing = std::numeric_limits<float>::quiet_NaN ();
    row[0]->BroadcastValue (0, nothing);
    wrapper.storage.SetNormalized (1, nothing);
    wrapper.meters.SetDirect (0, nothing);
    Tick ();
    CHECK (changed.size () == 5);
    CHECK (row[0]->GetValue () == 1.0f);
    CHECK (row[1]->GetValue () == 0.25f);
    CHECK (meter->GetValue () == 0.0f);
    const auto writes = wrapper.written.size ();
    SetParameter (wrapper.storage.GetParameterCount (), 0.5f); // the first id that is none
    CHECK (wrapper.written.size () == writes);
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: a meter sinks to nothing when faded out, and is back at once")
{
    Open ({});
    wrapper.meters.SetDirect (0, 0.5f);
    Tick ();
    CHECK (meter->GetValue () == 0.5f);
    SetMeterFade (false);
    Tick ();
    CHECK (meter->GetValue () == doctest::Approx (0.5 * std::exp (-0.1)));
    for (int i = 0; i < 300; ++i)
        Tick ();
    CHECK (meter->GetValue () == 0.0f);
    SetMeterFade (true);
    Tick ();
    CHECK (meter->GetValue () == 0.5f);
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: takes the effect's events, and asks for their data")
{
    std::int32_t number = 2;
    double newRate = 192000.0;
    CHECK (OnEffectEvent (kCodeNumInputs, &number)); // heard by a closed editor, too
    Open ({});
    CHECK (GetChannelCount () == 2);
    CHECK (OnEffectEvent (kCodeSampleRate, &newRate));
    CHECK (rate == 192000.0);
    for (auto code : { 0, 11, 14, -1, 9999, 10000, 10032 })
        CHECK_FALSE (OnEffectEvent (code, &number));
    for (auto code : { 5, 6, 9, 10, 12, 13 })
        CHECK_FALSE (OnEffectEvent (code, nullptr));

    wrapper.storage.SetNormalized (1, 0.5f);
    wrapper.storage.SetDefaultNormalized (1, 0.5f);
    number = 1;
    CHECK (OnEffectEvent (kCodePostHost, &number));
    CHECK (row[1]->GetValue () == 0.5f);
    CHECK (row[1]->GetDefault () == 0.5f);
    CHECK (changed.back () == 1);
    ZParameterStorageBase other;
    other.Allocate (1, 6);
    other.SetNormalized (0, 0.875f);
    CHECK (OnEffectEvent (kCodeStorage, &other));
    CHECK (row[0]->GetValue () == 0.875f);
    CHECK (OnEffectEvent (kCodeStorage, nullptr)); // it is gone: nothing may look at it any more
    CHECK (OnEffectEvent (kCodeVuBuffer, nullptr));
    Tick ();
    SetParameter (0, 0.25f);
    CHECK (wrapper.written.empty ());
}

namespace
{

/// Hears of everything that is the effect's own.
struct OwnEventsFixture : SmallFixture
{
    std::vector<std::int32_t> heard;

    bool TakesOwnEvent (std::int32_t code) const override { return code != kCodeFirstOfEffect; }
    void OnOwnEvent (std::int32_t code) override { heard.push_back (code); }
};

} // namespace

TEST_CASE_FIXTURE (OwnEventsFixture, "ZGuiEditor: the effect's own events wait for the user-interface thread")
{
    Open ({});
    bool taken = false;
    bool refused = true;
    std::thread (
        [&]
        {
            int gone = 0;
            taken = OnEffectEvent (kCodeFirstOfEffect + 4, &gone) && OnEffectEvent (kCodeFirstOfEffect + 31, nullptr);
            refused = !OnEffectEvent (kCodeFirstOfEffect, nullptr) && !OnEffectEvent (kCodeFirstOfEffect + 32, nullptr);
        })
        .join ();
    CHECK ((taken && refused));
    CHECK (heard.empty ());
    Tick ();
    CHECK (heard == std::vector{ kCodeFirstOfEffect + 4, kCodeFirstOfEffect + 31 });
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: Close and Remove end what is captured, with all panes of a view")
{
    Open ({});
    auto* page = AddPane (*GetRootView (), std::make_unique<ZView> (this, ZRect{ 0, 0, 100, 40 }));
    auto* inner = AddPane (*page, std::make_unique<ZView> (this, ZRect{ 0, 0, 100, 40 }));
    auto* slider = AddControl (*inner, std::make_unique<ZSlider> (this, ZRect{ 0, 0, 100, 10 }, 0));
    slider->SetDragMode (kSliderEndless);
    CHECK (Press ({ 5, 5 }));
    CHECK (window.cursorShown == 0);
    SUBCASE ("Close")
    {
        Close ();
    }
    SUBCASE ("Remove")
    {
        CHECK (Remove (page));
        CHECK (GetControls ().GetCount () == 3);
        CHECK (GetFocusPane () == nullptr);
        CHECK_FALSE (Remove (page)); // gone
    }
    CHECK (wrapper.cursorsShown == 1);
    CHECK (GetCapturePane () == nullptr);
    CHECK_FALSE (Drag ({ 6, 6 }));
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: what another thread posts is carried out in the next tick")
{
    Open ({});
    Tick ();
    std::atomic<bool> done = false;
    constexpr int kLast = 500;
    std::thread effect (
        [&]
        {
            for (int i = 1; i <= kLast; ++i)
                for (std::int32_t id : { 0, 1 })
                {
                    double newRate = i;
                    wrapper.storage.SetDefaultNormalized (id, static_cast<float> (i) / kLast);
                    OnEffectEvent (kCodePostHost, &id);
                    OnEffectEvent (kCodeSampleRate, &newRate);
                }
            done = true;
        });
    while (!done)
        Tick ();
    effect.join ();
    Tick ();
    CHECK (row[0]->GetDefault () == 1.0f);
    CHECK (row[1]->GetDefault () == 1.0f);
    CHECK (rate == kLast);
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: a pass draws what changed, and the modal pane over it")
{
    Open ({ 10, 10 });
    CHECK (Paint ().size () == 3);
    CHECK_FALSE (NeedsRedraw ());
    CHECK (Paint ().empty ());
    wrapper.storage.SetNormalized (1, 0.5f);
    Tick ();
    CHECK (NeedsRedraw ());
    CHECK (Paint () == Calls{ "FillRect 50,10,90,50" });
    row[1]->Hide ();
    row[1]->SetDirty (true); // never painted, so no reason for a pass
    CHECK_FALSE (NeedsRedraw ());
    row[1]->Show ();
    Paint ();

    row[1]->opensModal = true;
    Press ({ 60, 20 });
    row[1]->openRect = { 30, 10, 70, 60 }; // beyond its frame on all sides but the top
    row[0]->SetDirty (true);
    CHECK (Paint () == Calls{ "FillRect 10,10,50,50", "FillRect 40,20,80,70" });

    ZOffscreenCanvas target (ZOnscreenCanvas (surface), { 0, 0, 130, 70 });
    surface.Take ();
    Draw (target, {}, 0);
    const auto calls = surface.Take (); // above, left and right, none below: the pane reaches the end
    REQUIRE (calls.size () == 8);
    CHECK (Calls (calls.end () - 4, calls.end ()) ==
           Calls{ "> FillRect 40,20,80,70", "> CopyCanvas 10,10,130,20 from 0,0", "> CopyCanvas 10,20,40,70 from 0,10",
                  "> CopyCanvas 80,20,130,70 from 70,10" });
}

TEST_CASE_FIXTURE (SmallFixture, "ZGuiEditor: a tooltip shows after a second and goes with the pointer or the pane")
{
    Open ({ 10, 10 });
    row[0]->SetTooltip ("Drive");
    Hover ({ 15, 15 });
    Tick (999);
    CHECK (wrapper.tooltipLog.empty ());
    Tick (1);
    Tick (5000);
    Hover ({ 55, 15 });
    Tick (5000); // has none
    Hover ({ 15, 15 });
    Tick (1000);
    CHECK (Remove (row[0]));
    CHECK (wrapper.tooltipLog == Words_t{ "Drive at 10,10,50,50", "hidden", "Drive at 10,10,50,50", "hidden" });
}
