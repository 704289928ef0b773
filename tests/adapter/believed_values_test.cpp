#include "strip_in_host.h"

// Values that the host holds, the parameter objects show, and the storage and the engine have: they must not part.

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("The parameter objects follow an offline block and tell nobody, and the host's old values count again")
{
    StripInHost strip;
    const auto before = strip.instance.SaveState ();
    strip.Start (Vst::kOffline);
    strip.calls.clear ();
    for (const bool hasLooked : { false, true })
    {
        strip.Run (0.5f, 16, { { kDrive, 0.75 }, { kMorph, 1.0 } });
        if (hasLooked)
        {
            CHECK (strip.Value (kDrive) == 0.75);
            // The last key point's step 95, of 57 to 283.
            CHECK (strip.Value (kAttack) == doctest::Approx (38.0 / 226.0));
        }
        CHECK (strip.calls.empty ());
        CHECK (strip.instance.SaveState () != before);
        CHECK (strip.Set (kDrive, 0.5) == kResultOk);
        CHECK (strip.Set (kMorph, 0.0) == kResultOk);
        CHECK (strip.instance.SaveState () == before);
        strip.calls.clear ();
    }
}

TEST_CASE ("A state given to the processor alone shows, and the host's old values count again")
{
    StripInHost source;
    source.Set (kMorph, 1.0);
    source.Set (kDrive, 0.75);
    StripInHost strip;
    const auto before = strip.instance.SaveState ();
    strip.LoadIntoProcessor (source.instance.SaveState ());
    CHECK (strip.Set (kDrive, 0.5) == kResultOk); // what the parameter object held until now
    CHECK (strip.instance.Controller ().setState (nullptr) == kResultOk);
    CHECK (strip.Value (kMorph) == 1.0);
    CHECK (strip.Set (kMorph, 0.0) == kResultOk);
    CHECK (strip.instance.SaveState () == before);
}

TEST_CASE ("A host's own double of a restored dial makes no fresh morph")
{
    StripInHost source;
    source.Set (kMorph, 0.3); // no float
    source.Set (kAttack, 0.25);
    const auto state = source.instance.SaveState ();
    StripInHost strip;
    strip.instance.LoadState (state);
    CHECK (strip.Set (kMorph, 0.3) == kResultOk);
    CHECK (strip.Value (kAttack) == 0.25);
    CHECK (strip.instance.SaveState () == state);
}

TEST_CASE ("After stop and start the controller's meters show nothing, and take the value they had")
{
    StripInHost strip;
    strip.Start ();
    strip.Set (kOutputMeter, 0.5);
    strip.instance.Deactivate ();
    strip.instance.Activate ();
    CHECK (strip.Value (kOutputMeter) == 0.0);
    CHECK (strip.Set (kOutputMeter, 0.5) == kResultOk);
    CHECK (strip.Value (kOutputMeter) == 0.5);
}
