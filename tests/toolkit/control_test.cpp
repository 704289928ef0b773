#include "control.h"
#include "pane_desk.h"
#include "parameter_storage_base.h"
#include <doctest/doctest.h>
#include <limits>
#include <string>

using namespace tessaly;

namespace
{

/// One parameter of 25 steps from 0 to 24 and one list of three.
void Fill (ZParameterStorageBase& storage)
{
    static constexpr const char* kModes[]{ "Soft", "Middle", "Hard", nullptr };
    storage.Allocate (1, 2);
    storage.SetMaximum (0, 24.0f);
    storage.SetStep (0, 1.0f / 24);
    storage.SetDefaultNormalized (0, 0.5f);
    storage.SetNormalized (0, 0.25f);
    storage.SetType (1, kList);
    storage.SetListTexts (1, kModes);
}

} // namespace

TEST_CASE ("ZControl: a wish goes out as a broadcast, and the value comes back from the owner")
{
    PaneDesk desk;
    ZControl control (&desk, { 0, 0, 40, 40 }, 3);
    desk.Adopt (control);
    desk.echo = false;
    CHECK (desk.Wheel (control, 2));
    CHECK (desk.TakeValues () == std::vector<float>{ 0.02f });
    CHECK (control.GetValue () == 0.0f);

    desk.echo = true;
    for (auto [key, value] : { std::pair{ kKeyPageUp, 0.1f }, { kKeyUp, 0.11f }, { kKeyDown, 0.1f } })
    {
        CHECK (desk.Key (control, key, kShift)); // shift is no fine adjustment here
        CHECK (control.GetValue () == doctest::Approx (value));
    }
    CHECK (desk.TakeValues ().size () == 3);
    CHECK (desk.Key (control, kKeyPageDown));
    CHECK (desk.Key (control, kKeyPageDown)); // taken, though it changes nothing
    CHECK (desk.TakeValues ().size () == 1);
    CHECK_FALSE (desk.Key (control, kKeyLeft));
    CHECK_FALSE (desk.Wheel (control, -1));
    control.SetValue (std::numeric_limits<float>::quiet_NaN ());
    CHECK_FALSE (desk.Wheel (control, 1)); // no number to go on from
    CHECK (desk.TakeValues ().empty ());

    control.SetWheelEnabled (false);
    control.SetKeyEnabled (false);
    CHECK_FALSE (desk.Wheel (control, 1));
    CHECK_FALSE (desk.Key (control, kKeyUp));
    control.SetBroadcastEnabled (false);
    control.BroadcastValue (3, 1.0f);
    CHECK (desk.TakeValues ().empty ());
}

TEST_CASE ("ZControl: a control-click asks for the default, unless resets are off")
{
    PaneDesk desk;
    ZControl control (&desk, { 0, 0, 40, 40 }, 3);
    desk.Adopt (control);
    control.SetDefault (0.75f);
    CHECK_FALSE (desk.Press (control, { 5, 5 }, kControl));
    CHECK (control.GetValue () == 0.75f);
    desk.TakeValues ();
    control.SetResetEnabled (false);
    desk.Press (control, { 5, 5 }, kControl);
    control.SetResetEnabled (true);
    control.Hide ();
    desk.Press (control, { 5, 5 }, kControl);
    CHECK (desk.TakeValues ().empty ());
}

TEST_CASE ("ZControl: a storage gives range, steps and texts, the control's own converters go before it")
{
    PaneDesk desk;
    ZParameterStorageBase storage;
    Fill (storage);
    ZControl dial (&desk, {}, 0), mode (&desk, {}, 1), other (&desk, {}, 30000);
    CHECK (dial.GetStep () == 0.01f);
    for (auto* control : { &dial, &mode, &other })
    {
        desk.Adopt (*control);
        control->SetStorage (&storage);
    }
    CHECK (dial.GetValue () == 0.25f);
    CHECK (dial.GetDefault () == 0.5f);
    CHECK (desk.Wheel (dial, 1));
    CHECK (dial.GetValue () * 24 == doctest::Approx (7.0f));
    desk.TakeValues ();
    mode.SetValue (0.4f); // between two positions
    mode.SetKeySteps (0, 10);
    CHECK (desk.Key (mode, kKeyUp));
    CHECK (desk.TakeValues ().empty ());
    mode.SetIndex (2);
    CHECK (mode.GetValueText (mode.GetValue ()) == "Hard");
    CHECK (other.GetPlainValueText (1.0f).empty ());
    CHECK (other.ToPlain (0.3f) == 0.3f);

    storage.SetNormalized (0, 1.0f);
    dial.UpdateFromStorage (1);
    CHECK (dial.GetValue () * 24 == doctest::Approx (7.0f));
    dial.UpdateFromStorage (0);
    CHECK (dial.GetMaximum () == 24.0f);
    CHECK (dial.GetValue () == 1.0f);

    dial.SetConverters ({ [] (float, char* text) { std::char_traits<char>::copy (text, "own", 4); },
                          [] (float value, float low, float high) { return low + value * (high - low) + 100; },
                          [] (float plain, float low, float high) { return (plain - 100 - low) / (high - low); } });
    CHECK (dial.GetPlainValue () == 124.0f);
    dial.SetPlainValue (112.0f);
    CHECK (dial.GetValue () == 0.5f);
    CHECK (dial.GetValueText (0.5f) == "own");
}

TEST_CASE ("ZBroadcaster and ZListener: attached from either side, detached by either end")
{
    PaneDesk desk;
    {
        ZControl control (&desk, {}, 1);
        CHECK (desk.AddBroadcaster (&control));
        CHECK (control.HasListener (&desk));
        CHECK_FALSE (control.AddListener (&desk));
        CHECK_FALSE (control.AddListener (nullptr));
        {
            PaneDesk second;
            control.AddListener (&second);
            second.SetListenEnabled (false);
            control.BroadcastValue (1, 0.5f);
            CHECK (second.wanted.empty ());
        }
        control.BroadcastMessage (4, &control);
        CHECK (control.RemoveListener (&desk));
        CHECK_FALSE (desk.HasBroadcaster (&control));
        CHECK_FALSE (desk.RemoveBroadcaster (&control));
        control.AddListener (&desk);
    }
    CHECK (desk.TakeValues ().size () == 1);
    CHECK (desk.messages == std::vector<std::int32_t>{ 4 });
}

TEST_CASE ("ZBroadcaster: a listener that changes the list or turns the broadcast off costs nobody else his call")
{
    struct Changer final : ZListener
    {
        ZBroadcaster* source = nullptr;
        ZListener* leaver = nullptr;
        ZListener* joiner = nullptr;

        void OnValue (std::int32_t, float) override
        {
            source->RemoveListener (this);
            source->RemoveListener (leaver);
            source->AddListener (joiner);
            source->SetBroadcastEnabled (false);
        }
    };
    PaneDesk second, last, joiner;
    ZBroadcaster source;
    Changer first;
    first.source = &source;
    first.leaver = &last;
    first.joiner = &joiner;
    for (ZListener* listener :
         { static_cast<ZListener*> (&first), static_cast<ZListener*> (&second), static_cast<ZListener*> (&last) })
        source.AddListener (listener);
    source.BroadcastValue (1, 0.5f);
    CHECK (second.wanted.size () == 1);
    CHECK (last.wanted.empty ());
    CHECK (joiner.wanted.empty ());
    CHECK (source.HasListener (&joiner));
}
