#include "amx_font_text_edit.h"
#include "guide_lower_dial.h"
#include "guide_upper_dial.h"
#include "message_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr ZRect kKnob{ 83, 65, 96, 78 };
constexpr ZRect kRing{ 36, 18, 143, 125 };
constexpr ZPoint kMiddle{ 89, 71 };
constexpr ZPoint kOnRing{ 89, 40 };
constexpr ZPoint kFarAway{ 400, 200 };

/// A knob with its ring and two read-outs, which show one column of a font of one character.
struct GuideFixture : MessageFixture
{
    // Not owned: the editor's panes, in their order
    ZAMX_GuideLowerDial* knob = Add<ZAMX_GuideLowerDial> (kKnob);
    ZAMX_FontTextEdit* text = AddText ("text", 3);
    ZAMX_GuideUpperDial* ring = Add<ZAMX_GuideUpperDial> (kKnob);
    ZAMX_FontTextEdit* ringText = AddText ("ringtext", 0);

    GuideFixture ()
    {
        knob->SetBitmapActive (GetBitmap ("panel"), kKnob.TopLeft ());
        knob->SetAnimActive (GetBitmap ("knob"), 101, 13, {});
        knob->SetColumns (0, 1);
        knob->SetGuide (ring);
        ring->SetAnimActive (GetBitmap ("ring"), 101, 107, {});
        ring->SetCenter (54, 54);
        ring->SetLowerDial (knob);
        ring->SetTexts (text, ringText);
        ring->SetGeometry (kKnob.TopLeft (), { 13, 13 }, { 107, 107 });
        ring->Hide ();
        ring->SetActive (false);
        ringText->Hide ();
        for (ZControl* control : { static_cast<ZControl*> (knob), static_cast<ZControl*> (ring) })
            control->SetValue (0.5f);
        SetDialMode (kDialLinear);
    }
    ZAMX_FontTextEdit* AddText (std::string_view font, std::int32_t flags)
    {
        auto* added = Add<ZAMX_FontTextEdit> ({ 109, 66, 134, 77 });
        added->SetFontActive (GetBitmap (font), "5", 5, 11, 20, {});
        added->SetToText ([] (float, char* to) { PutText (to, "5"); });
        added->SetFlags (flags);
        return added;
    }
    float Value () const { return knob->GetValue (); }
    void Grow () ///< lets the ring come to its full size, or to rest
    {
        Tick (0);
        Tick (200);
        Tick (10);
    }
    void CheckOpen ()
    {
        CHECK (ring->GetFrame () == kRing);
        CHECK_FALSE (ring->IsIdle ());
        CHECK (TakeMessages () == Messages{ 1 });
    }
    void CheckClosing () { CHECK (TakeMessages () == Messages{ 0 }); }
    void CheckClosed ()
    {
        CHECK (ring->IsIdle ());
        CHECK_FALSE (ring->IsVisible ());
        CHECK (ring->GetFrame () == kKnob);
    }
};

} // namespace

TEST_CASE_FIXTURE (GuideFixture, "A click opens and closes a ring within 200 ms each")
{
    Press (kMiddle);
    Tick (25);
    CHECK (ring->GetFrame () == kKnob);
    Tick (50); // 11.75 of 47 pixels
    CHECK (ring->GetFrame () == ZRect{ 83 - 12, 65 - 12, 96 + 12, 78 + 12 });
    Tick (1000);
    Tick ();
    CheckOpen ();
    CHECK (ringText->IsVisible ());
    Tick (5000); // the button is down

    Release (kMiddle);
    CheckClosing ();
    Tick ();
    CHECK (ring->GetFrame () == kRing);
    Tick (150); // 35.25
    CHECK (ring->GetFrame () == ZRect{ 36 + 35, 18 + 35, 143 - 35, 125 - 35 });
    CHECK_FALSE (ring->IsIdle ());
    Tick (100);
    Tick ();
    CheckClosed ();
    CHECK_FALSE (ringText->IsVisible ());
    CHECK (Value () == 0.5f);
    CHECK (TakeMessages ().empty ());
}

TEST_CASE_FIXTURE (GuideFixture, "A ring released while it grows stays until the pointer leaves")
{
    Click (kMiddle);
    Grow ();
    CheckOpen ();
    for (const ZPoint inside : { kOnRing, ZPoint{ 89, 19 }, ZPoint{ 142, 71 } })
        Hover (inside, 3000);
    CHECK (TakeMessages ().empty ());
    Hover ({ 38, 20 }); // a corner of the frame
    CheckClosing ();
    Grow ();
    CheckClosed ();

    Click (kMiddle);
    window.pointer = kFarAway; // before any tick could find the ring under it
    Grow ();
    Tick ();
    CHECK (TakeMessages () == Messages{ 1, 0 });
}

TEST_CASE_FIXTURE (GuideFixture, "The first notch and the first key only open the ring")
{
    Hover (kMiddle);
    CHECK (Wheel (1));
    Grow ();
    CheckOpen ();
    CHECK (Value () == 0.5f);
    Wheel (1);
    CHECK (Value () == Approx (0.51));
    Tick (1999);
    CHECK (TakeMessages ().empty ());
    Tick (1);
    CheckClosing ();
    Grow ();
    CheckClosed ();

    SetFocusPane (knob);
    CHECK_FALSE (knob->KeyDown (event, { 0, 0, kKeyReturn, window.time }));
    CHECK (Key (kKeyUp));
    Grow ();
    CheckOpen ();
    CHECK (Value () == Approx (0.51));
    Key (kKeyPageUp);
    KeyRepeat (event, { 0, 0, kKeyPageUp, window.time });
    CHECK (Value () == Approx (0.71));
    window.buttons = kLeftButton;
    CHECK_FALSE (knob->KeyDown (event, { 0, 0, kKeyEscape, window.time }));
    window.buttons = 0;
    CHECK (Key (kKeyEscape));
    CheckClosing ();
}

TEST_CASE_FIXTURE (GuideFixture, "A drag begins without a jump where the pointer leaves the inner circle")
{
    Press (kMiddle);
    for (const ZPoint inside : { ZPoint{ 89, 59 }, ZPoint{ 80, 80 }, ZPoint{ 102, 71 }, ZPoint{ 89, 59 } })
        CHECK (Drag (inside));
    CHECK (Value () == 0.5f);
    Drag ({ 89, 57 }); // 14.5 pixels from the middle, beyond 13.5
    CHECK (Value () == 0.5f);
    Drag ({ 89, 52 });
    CHECK (Value () == Approx (0.55));
    Drag (kMiddle); // the circle counts no more
    CHECK (Value () == Approx (0.36));
}

TEST_CASE_FIXTURE (GuideFixture, "Angles are measured from the knob's centre also while the ring grows")
{
    SetDialMode (kDialJump);
    Press (kMiddle);
    Drag ({ 110, 72 }); // right of (90, 72): 240 of 300 degrees
    CHECK (Value () == Approx (0.8));
    Tick (0);
    Tick (100);
    Drag ({ 111, 72 });
    CHECK (Value () == Approx (0.8));
    Tick (100);
    Drag ({ 90, 30 });
    CHECK (Value () == Approx (0.5));
}

TEST_CASE_FIXTURE (GuideFixture, "A ring scales with its frame, its middle stands unscaled")
{
    Paint ();
    knob->SetBright (true, true);
    CHECK (Paints ("DrawBitmap knob 83,65,96,78 from 13,650"));
    Press (kMiddle);
    Tick (0);
    Tick (100); // 23.5 of 47 pixels
    const auto calls = Paint ();
    const auto drawn = [&] (std::string_view call) { return std::count (calls.begin (), calls.end (), call); };
    CHECK (drawn ("DrawBitmap knob 83,65,96,78 from 13,0") == 1);
    CHECK (drawn ("StretchBitmap ring 59,41,120,102 from 0,5350,107,5457") == 1);
    CHECK (drawn ("DrawBitmap ring 83,65,96,78 from 47,5397") == 1);
    CHECK (drawn ("DrawBitmap panel 83,65,96,78 from 83,65") == 2);
    CHECK (drawn ("DrawBitmap ringtext 129,66,134,77 from 0,0") == 1);
    text->SetDirty (true);
    CHECK_FALSE (Paints ("DrawBitmap text"));
    Tick (200);
    Release (kFarAway);
    Grow ();
    CHECK (Paints ("DrawBitmap text"));
}
