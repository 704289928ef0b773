#include "drive_dial.h"
#include "message_fixture.h"
#include "morph_dial.h"
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

constexpr ZPoint kMiddle{ 280, 254 };

/// One large dial in the morph dial's place, with strips of three columns.
template <typename Dial>
struct DialFixture : MessageFixture
{
    Dial* dial = Add<Dial> ({ 198, 214, 362, 306 }); // not owned: the editor's

    DialFixture ()
    {
        dial->SetAnimActive (GetBitmap ("strip"), 101, 92, {});
        dial->SetAnimInactive (GetBitmap ("dim"), 101, 92, {});
        dial->SetColumns (0, 1);
    }
    ZPoint Source () ///< where in the strip the dial's picture is taken from
    {
        dial->SetDirty (true);
        for (const auto& call : Paint ())
            if (call.operation == "DrawBitmap" && call.text == "strip")
                return call.from;
        return { -1, -1 };
    }
    int Frame () { return Source ().y / 92; }
    int Column () { return Source ().x / 164; }
};

using DriveFixture = DialFixture<ZAMX_DriveDial>;

struct MorphFixture : DialFixture<ZAMX_MorphDial>
{
    MorphFixture ()
    {
        dial->SetMorphColumns (0, 1, 2);
        Frame (); // the first one does not glide
    }
    bool IsDirtyAfterTick ()
    {
        Tick ();
        return dial->IsDirty ();
    }
};

} // namespace

TEST_CASE_FIXTURE (DriveFixture, "A large dial is edited from the first touch to 2000 ms after the last")
{
    window.time = 0xFFFFFFF0u; // the clock wraps
    Press (kMiddle);
    CHECK (TakeMessages () == Messages{ 1 });
    Tick (1500);
    Drag ({ 280, 250 });
    Release ({ 280, 250 });
    Tick (1999);
    CHECK (TakeMessages ().empty ());
    Tick (1);
    CHECK (TakeMessages () == Messages{ 0 });

    Hover (kMiddle);
    CHECK (Wheel (0)); // changes nothing, and is a touch
    Key (kKeyHome);    // is none
    Tick (1000);
    Key (kKeyPageDown);
    Tick (1999);
    dial->EndEditingIfActive (true);
    dial->EndEditingIfActive (true);
    CHECK (TakeMessages () == Messages{ 1, 0 });

    dial->StartEditing (window.time);
    dial->StartEditing (window.time + 500);
    Tick (2400);
    dial->SetActive (false); // nothing that is off stays lit
    Tick (0);
    CHECK (TakeMessages () == Messages{ 1, 1, 0 });
}

TEST_CASE_FIXTURE (MorphFixture, "The morph dial glides to the value's frame, faster under the hand")
{
    dial->SetValue (1.0f);
    CHECK (Frame () == 17); // 100 / 6
    CHECK (Frame () == 31); // (100 + 5 * 17) / 6
    int shown = 31;
    for (int pass = 0; pass < 40 && IsDirtyAfterTick (); ++pass)
    {
        const auto next = Frame ();
        CHECK (next > shown);
        shown = next;
    }
    CHECK (shown == 100);

    SetDialMode (kDialLinear);
    Press (kMiddle);
    Drag ({ 280, 294 });    // 40 down
    CHECK (Frame () == 87); // (60 + 2 * 100) / 3
    CHECK (Frame () == 78);
    Release ({ 280, 294 });
    CHECK (Frame () == 75); // (60 + 5 * 78) / 6
    for (int pass = 0; pass < 40 && IsDirtyAfterTick (); ++pass)
        shown = Frame ();
    CHECK (shown == 60);

    dial->SetActive (false);
    dial->SetValue (0.0f);
    CHECK (Paints ("DrawBitmap dim 198,214,362,306 from 0,0"));
    CHECK_FALSE (IsDirtyAfterTick ());
}

TEST_CASE_FIXTURE (MorphFixture, "The morph dial's light wins over its modified look")
{
    dial->SetModified (true);
    CHECK (dial->IsDirty ());
    CHECK (Column () == 2);
    dial->SetBright (true, true);
    CHECK (Column () == 1);
    dial->SetBright (false, true);
    CHECK (Column () == 2);
    ParameterChanged (kFreeId, 0.5f);
    CHECK (Column () == 0);
    CHECK_FALSE (dial->IsModified ());
    dial->SetBright (true, true);
    ParameterChanged (kFreeId, 0.25f);
    CHECK (Column () == 1);
}
