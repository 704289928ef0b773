#include "control.h"
#include "pane_fixture.h"
#include "parameter_storage_base.h"
#include <cmath>
#include <doctest/doctest.h>
#include <limits>

using namespace tessaly;
using Values = std::vector<float>;

TEST_CASE ("ZControl: a wish goes out as a broadcast, and the value comes back from the owner")
{
    PaneFixture fixture;
    ZControl control (&fixture, { 0, 0, 40, 40 }, 3);
    control.AddListener (&fixture);
    CHECK (fixture.Wheel (control, 2));
    CHECK (fixture.TakeValues () == Values{ 0.02f });
    CHECK (control.GetValue () == 0.0f);

    fixture.Adopt (control);
    for (auto [key, value] :
         { std::pair{ kKeyPageUp, 0.1f }, { kKeyUp, 0.11f }, { kKeyDown, 0.1f }, { kKeyPageDown, 0.0f } })
    {
        CHECK (fixture.Key (control, key, kShift)); // shift is no fine adjustment here
        CHECK (control.GetValue () == doctest::Approx (value));
    }
    control.SetDefault (0.75f);
    CHECK_FALSE (fixture.Press (control, { 5, 5 }, kControl));
    CHECK (fixture.TakeValues ().size () == 5);
    CHECK (control.GetValue () == 0.75f);

    control.SetResetEnabled (false);
    fixture.Press (control, { 5, 5 }, kControl);
    control.SetValue (0.0f);
    CHECK (fixture.Key (control, kKeyPageDown)); // taken, though it changes nothing
    CHECK_FALSE (fixture.Key (control, kKeyLeft));
    CHECK_FALSE (fixture.Wheel (control, -1));
    control.SetValue (std::numeric_limits<float>::quiet_NaN ());
    CHECK_FALSE (fixture.Wheel (control, 1)); // NaN, from which nothing follows
    control.SetValue (0.5f);
    control.SetWheelEnabled (false);
    control.SetKeyEnabled (false);
    CHECK_FALSE (fixture.Wheel (control, 1));
    CHECK_FALSE (fixture.Key (control, kKeyUp));
    CHECK (fixture.TakeValues ().empty ());
}

TEST_CASE ("ZBroadcaster: who leaves, joins or turns the broadcast off in a call costs nobody else his own")
{
    struct Changer final : ZListener
    {
        ZBroadcaster source;
        PaneFixture leaver, joiner;

        void OnValue (std::int32_t, float) override
        {
            source.RemoveListener (this);
            source.RemoveListener (&leaver);
            source.AddListener (&joiner);
            source.SetBroadcastEnabled (false);
        }
    };
    Changer first;
    auto& source = first.source;
    PaneFixture second;
    CHECK (source.AddListener (&first));
    CHECK (second.AddBroadcaster (&source)); // from the other side
    CHECK_FALSE (source.AddListener (&second));
    CHECK_FALSE (source.AddListener (nullptr));
    source.AddListener (&first.leaver);
    {
        PaneFixture gone; // detaches itself
        source.AddListener (&gone);
    }
    source.BroadcastValue (1, 0.5f);
    CHECK (second.TakeValues ().size () == 1);
    CHECK (first.leaver.TakeValues ().empty ());
    CHECK_FALSE (first.leaver.HasBroadcaster (&source));
    CHECK (first.joiner.TakeValues ().empty ());

    source.BroadcastValue (1, 0.5f); // still off
    CHECK (second.TakeValues ().empty ());
    source.SetBroadcastEnabled (true);
    source.BroadcastValue (1, 0.5f);
    CHECK (first.joiner.TakeValues ().size () == 1);
}

TEST_CASE ("ZControl: its position is the storage's list entry for every value and length")
{
    for (std::int32_t entries = 2; entries < 40; ++entries)
    {
        ZParameterStorageBase storage;
        storage.Allocate (1, 1);
        storage.SetStep (0, 1.0f / static_cast<float> (entries));
        ZControl control (nullptr, {}, 0);
        control.SetStorage (&storage);
        for (std::int32_t edge = 1; edge < entries; ++edge)
            for (const float towards : { 0.0f, 1.0f })
            {
                const auto value = std::nextafter (static_cast<float> (edge) / static_cast<float> (entries), towards);
                storage.SetNormalized (0, value);
                control.SetValue (value);
                CAPTURE (entries);
                REQUIRE (control.GetIndex () == storage.GetInt (0));
            }
    }
}
