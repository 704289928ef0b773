#include "control.h"
#include "pane_desk.h"
#include "parameter_storage_base.h"
#include <doctest/doctest.h>
#include <limits>
#include <string>

using namespace tessaly;
using Values = std::vector<float>;

TEST_CASE ("ZControl: a wish goes out as a broadcast, and the value comes back from the owner")
{
    PaneDesk desk;
    ZControl control (&desk, { 0, 0, 40, 40 }, 3);
    control.AddListener (&desk);
    CHECK (desk.Wheel (control, 2));
    CHECK (desk.TakeValues () == Values{ 0.02f });
    CHECK (control.GetValue () == 0.0f);

    desk.Adopt (control);
    for (auto [key, value] : { std::pair{ kKeyPageUp, 0.1f }, { kKeyUp, 0.11f }, { kKeyDown, 0.1f } })
    {
        CHECK (desk.Key (control, key, kShift)); // shift is no fine adjustment here
        CHECK (control.GetValue () == doctest::Approx (value));
    }
    CHECK (desk.Key (control, kKeyPageDown));
    CHECK (desk.TakeValues ().size () == 4);
    CHECK (desk.Key (control, kKeyPageDown)); // taken, though it changes nothing
    CHECK_FALSE (desk.Key (control, kKeyLeft));
    CHECK_FALSE (desk.Wheel (control, -1));
    control.SetValue (std::numeric_limits<float>::quiet_NaN ());
    CHECK_FALSE (desk.Wheel (control, 1)); // no number to go on from
    control.SetWheelEnabled (false);
    control.SetKeyEnabled (false);
    control.SetValue (0.0f);
    CHECK_FALSE (desk.Wheel (control, 1));
    CHECK_FALSE (desk.Key (control, kKeyUp));
    CHECK (desk.TakeValues ().empty ());
}

TEST_CASE ("ZControl: a control-click asks for the default, unless resets are off")
{
    PaneDesk desk;
    ZControl control (&desk, { 0, 0, 40, 40 }, 3);
    desk.Adopt (control);
    control.SetDefault (0.75f);
    CHECK_FALSE (desk.Press (control, { 5, 5 }, kControl));
    CHECK (desk.TakeValues () == Values{ 0.75f });
    control.SetResetEnabled (false);
    desk.Press (control, { 5, 5 }, kControl);
    control.SetResetEnabled (true);
    control.Hide ();
    desk.Press (control, { 5, 5 }, kControl);
    CHECK (desk.TakeValues ().empty ());
}

TEST_CASE ("ZControl: a storage gives range, steps and texts, the control's own converters go before it")
{
    static constexpr const char* kModes[]{ "Soft", "Middle", "Hard", nullptr };
    ZParameterStorageBase storage; // 25 steps from 0 to 24, and a list of three
    storage.Allocate (1, 2);
    storage.SetMaximum (0, 24.0f);
    storage.SetStep (0, 1.0f / 24);
    storage.SetDefaultNormalized (0, 0.5f);
    storage.SetNormalized (0, 0.25f);
    storage.SetType (1, kList);
    storage.SetListTexts (1, kModes);
    PaneDesk desk;
    ZControl dial (&desk, {}, 0), mode (&desk, {}, 1), other (&desk, {}, 30000);
    for (auto* control : { &dial, &mode, &other })
    {
        desk.Adopt (*control);
        control->SetStorage (&storage);
    }
    CHECK (dial.GetDefault () == 0.5f);
    CHECK (desk.Wheel (dial, 1));
    CHECK (dial.GetValue () * 24 == doctest::Approx (7.0f));
    storage.SetNormalized (0, 1.0f);
    dial.UpdateFromStorage (1); // not its own
    CHECK (dial.GetValue () < 1.0f);
    dial.UpdateFromStorage (0);
    CHECK (dial.GetValue () == 1.0f);

    desk.TakeValues ();
    mode.SetValue (0.4f); // between two positions
    mode.SetKeySteps (0, 10);
    CHECK (desk.Key (mode, kKeyUp));
    CHECK (desk.TakeValues ().empty ());
    mode.SetIndex (2);
    CHECK (mode.GetValueText (mode.GetValue ()) == "Hard");
    CHECK (other.GetPlainValueText (1.0f).empty ());
    CHECK (other.ToPlain (0.3f) == 0.3f);

    dial.SetConverters ({ [] (float, char* text) { std::char_traits<char>::copy (text, "own", 4); },
                          [] (float value, float low, float high) { return low + value * (high - low) + 100; },
                          [] (float plain, float low, float high) { return (plain - 100 - low) / (high - low); } });
    CHECK (dial.GetPlainValue () == 124.0f);
    dial.SetPlainValue (112.0f);
    CHECK (dial.GetValue () == 0.5f);
    CHECK (dial.GetValueText (0.5f) == "own");
}

TEST_CASE ("ZBroadcaster: who leaves, joins or turns the broadcast off in a call costs nobody else his own")
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
    CHECK (source.AddListener (&first));
    CHECK (second.AddBroadcaster (&source)); // from the other side
    CHECK_FALSE (source.AddListener (&second));
    CHECK_FALSE (source.AddListener (nullptr));
    source.AddListener (&last);
    {
        PaneDesk gone; // detaches itself
        source.AddListener (&gone);
    }
    source.BroadcastValue (1, 0.5f);
    CHECK (second.TakeValues ().size () == 1);
    CHECK (last.TakeValues ().empty ());
    CHECK (joiner.TakeValues ().empty ());
    CHECK (source.HasListener (&joiner));
    CHECK_FALSE (last.HasBroadcaster (&source));

    source.BroadcastValue (1, 0.5f); // still off
    source.SetBroadcastEnabled (true);
    second.SetListenEnabled (false);
    source.BroadcastValue (1, 0.5f);
    CHECK (second.TakeValues ().empty ());
    CHECK (joiner.TakeValues ().size () == 1);
}
