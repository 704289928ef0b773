#include "gui_editor.h"

#include "editor_desk.h"
#include <atomic>
#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <thread>

using namespace tessaly;

namespace
{

using Words_t = std::vector<std::string>;

constexpr std::int32_t kCommandTag = 30000; // a tag that is no parameter's

/// Three controls side by side, 40 pixels each, of parameters 0 and 1 and of a command, and two meters.
class SmallEditor final : public ZGuiEditor
{
public:
    using ZGuiEditor::ZGuiEditor;
    ~SmallEditor () override { Close (); }

    ProbeControl* At (std::int32_t index) const { return row[static_cast<std::size_t> (index)]; }
    std::vector<std::string> log;
    std::vector<ProbeControl*> row; // not owned: this editor's panes
    ZControl* leftMeter = nullptr;
    double rate = 0.0;
    int keysLeft = 0;
    std::vector<std::int32_t> changed; // ids of ParameterChanged in order

    void ParameterChanged (std::int32_t id, float value) override
    {
        ZGuiEditor::ParameterChanged (id, value);
        changed.push_back (id);
    }

protected:
    void CreateControls () override
    {
        for (auto tag : { 0, 1, kCommandTag })
        {
            const auto left = static_cast<std::int32_t> (row.size ()) * 40;
            row.push_back (AddControl (*GetRootView (),
                                       std::make_unique<ProbeControl> (this, ZRect{ left, 0, left + 40, 40 }, tag)));
            row.back ()->log = &log;
        }
        leftMeter = AddMeter (*GetRootView (), std::make_unique<ZControl> (this, ZRect{ 0, 40, 20, 60 }, 0));
        leftMeter->SetMouseEnabled (false);
    }
    void DestroyControls () override
    {
        row.clear ();
        leftMeter = nullptr;
    }
    bool OnKeyDown (ZEvent&, const ZKeyInput&) override { return ++keysLeft > 0; }
    void OnFocusGained () override { log.emplace_back ("gained"); }
    void OnFocusLost () override { log.emplace_back ("lost"); }
    void OnSampleRate (double rateHz) override { rate = rateHz; }
};

} // namespace

TEST_CASE ("ZGuiEditor: opens with the effect's values and size, closes without a trace, opens again")
{
    EditorDesk desk;
    desk.wrapper.storage.SetNormalized (1, 0.75f);
    SmallEditor editor (desk.wrapper);
    CHECK_FALSE (editor.NeedsRedraw ());
    CHECK_FALSE (desk.Press (editor, { 5, 5 }));
    for (int round = 0; round < 2; ++round)
    {
        editor.Open ({ 10, 20 });
        editor.Open ({ 0, 0 }); // open already
        CHECK (editor.IsOpen ());
        CHECK (editor.GetOrigin () == ZPoint{ 10, 20 });
        std::int32_t width = 0;
        std::int32_t height = 0;
        editor.GetSize (width, height);
        CHECK (ZPoint{ width, height } == ZPoint{ 120, 60 });
        CHECK (editor.At (1)->GetValue () == 0.75f);
        CHECK (editor.rate == 96000.0);
        CHECK (editor.NeedsRedraw ());
        CHECK (editor.GetBitmap ("knob") == editor.GetBitmap ("knob"));
        CHECK (editor.GetBitmap ("missing")->GetWidth () == 0);

        editor.SetSize (300, 200);
        CHECK (desk.wrapper.size == ZPoint{ 300, 200 });
        CHECK (editor.GetRootView ()->GetFrame () == ZRect{ 10, 20, 310, 220 });
        editor.Close ();
        CHECK (editor.GetRootView () == nullptr);
        desk.Tick (editor);
        CHECK (desk.Paint (editor).empty ());
    }
    CHECK (desk.wrapper.loaded == Words_t{ "knob", "missing", "knob", "missing" });

    desk.wrapper.hasEffect = false;
    editor.Open ({});
    CHECK (editor.rate == 44100.0);
    editor.SetParameter (0, 0.5f); // no effect to write to
    CHECK (editor.At (0)->GetValue () == 0.5f);
    CHECK (desk.wrapper.written.empty ());
}

TEST_CASE ("ZGuiEditor: a press is captured, a second press ends the first, a refused move ends it, too")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({ 10, 10 });
    CHECK (desk.Press (editor, { 15, 15 }));
    CHECK (editor.GetCapturePane () == editor.At (0));
    CHECK (editor.GetFocusPane () == editor.At (0));
    CHECK (desk.Drag (editor, { 500, 500 }));
    CHECK (desk.Press (editor, { 55, 15 }));
    CHECK (editor.log == Words_t{ "0 down", "0 move", "0 up", "1 down" });
    editor.At (1)->takesMove = false;
    CHECK_FALSE (desk.Drag (editor, { 55, 16 }));
    CHECK (editor.GetCapturePane () == nullptr);
    CHECK_FALSE (desk.Press (editor, { 400, 15 })); // nothing there
    CHECK (editor.GetFocusPane () == editor.At (1));

    SUBCASE ("closing in mid-drag leaves nothing behind")
    {
        desk.Press (editor, { 15, 15 });
        editor.Close ();
        CHECK_FALSE (desk.Drag (editor, { 20, 20 }));
        editor.Open ({ 10, 10 });
        CHECK (editor.GetCapturePane () == nullptr);
        CHECK (editor.GetFocusPane () == nullptr);
    }
    SUBCASE ("a press may end another control")
    {
        editor.At (0)->onPress = [&] { editor.At (0)->SetDirty (editor.Remove (editor.At (1))); };
        CHECK (desk.Press (editor, { 15, 15 }));
        CHECK (editor.GetFocusPane () == editor.At (0));
        CHECK (editor.GetControls ().GetCount () == 2);
        desk.Release (editor, { 15, 15 });
        CHECK (editor.GetCapturePane () == nullptr);
    }
    SUBCASE ("who calls back into the mouse entries is not entered again")
    {
        editor.log.clear ();
        editor.At (0)->onPress = [&]
        {
            CHECK (editor.IsInputLocked ());
            desk.Press (editor, { 55, 15 });
            desk.Release (editor, { 55, 15 });
        };
        CHECK (desk.Press (editor, { 15, 15 }));
        CHECK_FALSE (editor.IsInputLocked ());
        CHECK (editor.log == Words_t{ "0 down" });
        editor.SetInputLocked (true);
        CHECK (desk.Drag (editor, { 15, 16 })); // nothing moves, but the drag is still on
        CHECK (editor.log == Words_t{ "0 down" });
    }
}

TEST_CASE ("ZGuiEditor: the pointer enters and leaves panes on ticks, not during a drag or beside a modal pane")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({});
    desk.window.pointer = { 5, 5 };
    desk.Tick (editor);
    desk.window.pointer = { 45, 5 };
    desk.Tick (editor);
    desk.Tick (editor);
    CHECK (editor.log == Words_t{ "0 enter", "0 exit", "1 enter" });
    CHECK (editor.At (2)->ticks == 3); // one a tick, though root and control are both registered
    editor.log.clear ();

    desk.Press (editor, { 45, 5 });
    desk.Tick (editor);
    CHECK (editor.GetHoverPane () == nullptr);
    desk.Release (editor, { 5, 5 });
    CHECK (editor.GetHoverPane () == editor.At (0));
    CHECK (editor.log == Words_t{ "1 down", "1 exit", "1 up", "0 enter" });
    editor.log.clear ();

    editor.At (1)->opensModal = true;
    desk.Press (editor, { 45, 5 });
    desk.Tick (editor);
    editor.FocusLost (); // closes what is modal
    editor.FocusGained ();
    CHECK (editor.GetModalPane () == nullptr);
    CHECK (editor.log == Words_t{ "1 open", "0 exit", "1 close", "lost", "gained" });
}

TEST_CASE ("ZGuiEditor: wheel and keys go to the modal pane, then to hover and focus, then to the editor")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({});
    desk.window.pointer = { 45, 5 };
    desk.Tick (editor);
    CHECK (desk.Wheel (editor, 10));
    CHECK (editor.GetFocusPane () == editor.At (1));
    CHECK (desk.wrapper.storage.GetNormalized (1) == doctest::Approx (0.1));
    CHECK_FALSE (desk.Wheel (editor, 0)); // changes nothing, so nobody took it

    editor.log.clear ();
    editor.At (0)->opensModal = true;
    desk.Press (editor, { 5, 5 });
    editor.SetFocusPane (editor.At (1));
    CHECK (desk.Key (editor, kKeyReturn));
    CHECK (editor.log == Words_t{ "0 open", "0 key", "1 key" });
    CHECK (editor.keysLeft == 1);
    editor.SetFocusPane (editor.At (0)); // asked once only
    CHECK (desk.Key (editor, kKeyReturn));
    CHECK (editor.log.size () == 4);
    editor.At (0)->takesKeys = true;
    CHECK (desk.Key (editor, kKeyReturn));
    CHECK (editor.keysLeft == 2);
}

TEST_CASE ("ZGuiEditor: values go from control to effect and back, from outside by polling, meters with their fade")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({});
    desk.Tick (editor);
    editor.changed.clear ();

    editor.At (0)->BroadcastValue (0, 1.5f); // written within its range, shown as it is
    CHECK (desk.wrapper.storage.GetNormalized (0) == 1.0f);
    CHECK (editor.At (0)->GetValue () == 1.5f);
    desk.Tick (editor); // and then as the effect has it
    CHECK (editor.At (0)->GetValue () == 1.0f);
    CHECK (editor.changed == std::vector{ 0, 0 });
    editor.At (2)->BroadcastValue (kCommandTag, 1.0f);
    CHECK (editor.At (2)->GetValue () == 1.0f);
    CHECK (desk.wrapper.written.size () == 1);
    editor.EndParameterEdit (-1);
    CHECK (desk.wrapper.ended == std::vector{ -1 });

    desk.wrapper.storage.SetNormalized (1, 0.25f);
    desk.wrapper.storage.SetNormalized (3, 0.5f); // no control bears it
    editor.changed.clear ();
    desk.Tick (editor);
    desk.Tick (editor);
    CHECK (editor.changed == std::vector{ 1, 3 });
    CHECK (editor.At (1)->GetValue () == 0.25f);

    const auto nothing = std::numeric_limits<float>::quiet_NaN ();
    editor.changed.clear ();
    editor.At (0)->BroadcastValue (0, nothing);
    desk.wrapper.storage.SetNormalized (1, nothing);
    desk.wrapper.meters.SetDirect (0, nothing);
    desk.Tick (editor);
    CHECK (editor.changed.empty ());
    CHECK (editor.At (0)->GetValue () == 1.0f);
    CHECK (editor.At (1)->GetValue () == 0.25f);
    CHECK (editor.leftMeter->GetValue () == 0.0f);

    desk.wrapper.meters.SetDirect (0, 0.5f);
    desk.Tick (editor);
    CHECK (editor.leftMeter->GetValue () == 0.5f);
    editor.SetMeterFade (false);
    desk.Tick (editor);
    CHECK (editor.leftMeter->GetValue () == doctest::Approx (0.5 * std::exp (-0.1)));
    editor.Close ();
    editor.Open ({});
    desk.Tick (editor); // the fade goes on where it stood
    CHECK (editor.leftMeter->GetValue () == doctest::Approx (0.5 * std::exp (-0.2)));
    for (int i = 0; i < 300; ++i)
        desk.Tick (editor);
    CHECK (editor.leftMeter->GetValue () == 0.0f);
    editor.SetMeterFade (true);
    desk.Tick (editor);
    CHECK (editor.leftMeter->GetValue () == 0.5f);
}

TEST_CASE ("ZGuiEditor: takes the effect's events, and asks for their data")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    std::int32_t number = 2;
    double rate = 192000.0;
    CHECK (editor.OnEffectEvent (kCodeNumInputs, &number)); // heard by a closed editor, too
    editor.Open ({});
    CHECK (editor.GetChannelCount () == 2);
    CHECK (editor.OnEffectEvent (kCodeSampleRate, &rate));
    CHECK (editor.rate == 192000.0);
    for (auto code : { 0, 11, 14, -1, 10000 })
        CHECK_FALSE (editor.OnEffectEvent (code, &number));
    for (auto code : { 5, 6, 9, 10, 12, 13 })
        CHECK_FALSE (editor.OnEffectEvent (code, nullptr));
    CHECK (editor.OnEffectEvent (kCodeHookA, nullptr));

    desk.wrapper.storage.SetNormalized (1, 0.5f);
    desk.wrapper.storage.SetDefaultNormalized (1, 0.5f);
    number = 1;
    CHECK (editor.OnEffectEvent (kCodePostHost, &number));
    CHECK (editor.At (1)->GetValue () == 0.5f);
    CHECK (editor.At (1)->GetDefault () == 0.5f);
    CHECK (editor.changed.back () == 1);

    ZParameterStorageBase other;
    other.Allocate (1, 6);
    other.SetNormalized (0, 0.875f);
    CHECK (editor.OnEffectEvent (kCodeStorage, &other));
    CHECK (editor.At (0)->GetValue () == 0.875f);
    CHECK (editor.OnEffectEvent (kCodeStorage, nullptr)); // it is gone: nothing may look at it any more
    CHECK (editor.OnEffectEvent (kCodeVuBuffer, nullptr));
    desk.Tick (editor);

    ZGuiEditor* self = nullptr;
    CHECK (editor.OnEffectEvent2 (ZGuiEditor::kWhichEditor, &self));
    CHECK (self == &editor);
    CHECK_FALSE (editor.OnEffectEvent2 (1, &self));
}

TEST_CASE ("ZGuiEditor: what another thread posts is carried out in the next tick")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({});
    desk.Tick (editor);
    std::atomic<bool> done = false;
    constexpr int kLast = 500;
    std::thread effect (
        [&]
        {
            for (int i = 1; i <= kLast; ++i)
                for (std::int32_t id : { 0, 1 })
                {
                    const auto value = static_cast<float> (i) / kLast;
                    double rate = i;
                    desk.wrapper.storage.SetNormalized (id, value);
                    desk.wrapper.storage.SetDefaultNormalized (id, value);
                    editor.OnEffectEvent (kCodePostHost, &id);
                    editor.OnEffectEvent (kCodeSampleRate, &rate);
                }
            done = true;
        });
    while (!done)
        desk.Tick (editor);
    effect.join ();
    desk.Tick (editor);
    CHECK (editor.At (0)->GetDefault () == 1.0f); // the event's: polling brings values only
    CHECK (editor.At (1)->GetDefault () == 1.0f);
    CHECK (editor.At (1)->GetValue () == 1.0f);
    CHECK (editor.rate == kLast);
}

TEST_CASE ("ZGuiEditor: a pass draws what changed, and the modal pane over it")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({ 10, 10 });
    CHECK (desk.Paint (editor).size () == 3);
    CHECK_FALSE (editor.NeedsRedraw ());
    CHECK (desk.Paint (editor).empty ());
    desk.wrapper.storage.SetNormalized (1, 0.5f);
    desk.Tick (editor);
    CHECK (editor.NeedsRedraw ());
    CHECK (desk.Paint (editor) == Words_t{ "FillRect 50,10,90,50" });
    editor.At (1)->Hide ();
    editor.At (1)->SetDirty (true); // never painted, so no reason for a pass
    CHECK_FALSE (editor.NeedsRedraw ());
    editor.AddView (std::make_unique<ZView> (&editor, ZRect{})); // outside of the tree, likewise
    CHECK_FALSE (editor.NeedsRedraw ());
    editor.At (1)->Show ();
    desk.Paint (editor);

    editor.At (1)->opensModal = true;
    desk.Press (editor, { 60, 20 });
    editor.At (1)->openRect = { 30, 10, 70, 60 }; // beyond its frame on all sides but the top
    editor.At (0)->SetDirty (true);
    CHECK (desk.Paint (editor) == Words_t{ "FillRect 10,10,50,50", "FillRect 40,20,80,70" });

    ZOffscreenCanvas target (ZOnscreenCanvas (desk.surface), { 0, 0, 130, 70 });
    desk.surface.Take ();
    editor.Draw (target, {}, 0);
    const auto calls = desk.surface.Take ();
    REQUIRE (calls.size () == 8);
    CHECK (calls[0] == "> CreateOffscreen 10,10,130,70");
    CHECK (calls[4] == "> FillRect 40,20,80,70");
    CHECK (calls[5] == "> CopyCanvas 10,10,130,20 from 0,0");   // above
    CHECK (calls[6] == "> CopyCanvas 10,20,40,70 from 0,10");   // left
    CHECK (calls[7] == "> CopyCanvas 80,20,130,70 from 70,10"); // none below: the pane reaches the end
}

TEST_CASE ("ZGuiEditor: a tooltip shows after a second on its pane and goes with the pointer, the pane or the editor")
{
    EditorDesk desk;
    SmallEditor editor (desk.wrapper);
    editor.Open ({ 10, 10 });
    editor.At (0)->SetTooltip ("Drive");
    desk.window.pointer = { 15, 15 };
    desk.Tick (editor);
    desk.Tick (editor, 999);
    CHECK (desk.wrapper.tooltipLog.empty ());
    desk.Tick (editor, 1);
    desk.Tick (editor, 5000);
    desk.window.pointer = { 55, 15 };
    desk.Tick (editor);
    desk.Tick (editor, 5000); // has none
    desk.window.pointer = { 15, 15 };
    desk.Tick (editor);
    desk.Tick (editor, 1000);
    CHECK (editor.Remove (editor.At (0)));
    CHECK (editor.GetHoverPane () == nullptr);
    const Words_t twice{ "Drive at 10,10,50,50", "hidden", "Drive at 10,10,50,50", "hidden" };
    CHECK (desk.wrapper.tooltipLog == twice);

    desk.wrapper.hasTooltips = false; // a window without them
    editor.Close ();
    editor.Open ({ 10, 10 });
    editor.At (0)->SetTooltip ("Drive");
    desk.Tick (editor);
    desk.Tick (editor, 1000);
    CHECK (desk.wrapper.tooltipLog == twice);
}
