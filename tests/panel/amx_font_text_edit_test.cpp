#include "amx_font_text_edit.h"
#include "message_fixture.h"
#include "panel_ids.h"
#include <cstddef>
#include <doctest/doctest.h>

using namespace tessaly;
using doctest::Approx;

namespace
{

constexpr ZPoint kMiddle{ 120, 72 };
constexpr ZPoint kOutside{ 300, 200 };

struct ReadoutFixture : MessageFixture
{
    ZAMX_FontTextEdit* text = Add<ZAMX_FontTextEdit> ({ 109, 66, 134, 77 }); // not owned: the editor's

    ReadoutFixture ()
    {
        text->SetBitmapActive (GetBitmap ("panel"), { 109, 66 });
        text->SetFontActive (GetBitmap ("font"), "05", 5, 11, 20, {});
        text->SetToText ([] (float, char* to) { PutText (to, "5"); });
        text->SetColumns (0, 1);
        text->SetValue (0.5f);
    }
};

} // namespace

TEST_CASE_FIXTURE (ReadoutFixture, "A read-out tells when a drag begins to touch it, goes on and ends")
{
    Press (kMiddle);
    Tick (70);
    Drag ({ 120, 62 });
    CHECK (text->GetLastTouch () == window.time);
    Release ({ 120, 62 });
    CHECK (text->GetValue () == Approx (0.6));
    const auto told = TakeMessages ();
    CHECK (told.front () == kTouchStarted);
    CHECK (told.back () == kTouchEnded);
    CHECK (std::count (told.begin (), told.end (), kTouchGoesOn) == static_cast<std::ptrdiff_t> (told.size ()) - 2);
    text->MouseMove (event, At (kMiddle, 0));
    InputDriver::Press (*text, kMiddle, 0, kRightButton);
    CHECK (TakeMessages ().empty ());
}

TEST_CASE_FIXTURE (ReadoutFixture, "A touch ends with the pointer's exit or the key's release")
{
    Hover (kMiddle);
    CHECK (Wheel (0));
    CHECK (Wheel (2));
    CHECK (text->GetValue () == Approx (0.52));
    Tick (5000);
    CHECK (TakeMessages () == Messages{ 2, 3 });
    Hover (kOutside);
    CHECK (TakeMessages () == Messages{ 4 });

    CHECK (Key (kKeyPageDown));
    CHECK (text->GetValue () == Approx (0.42));
    Key (kKeyHome);
    ReleaseKey (kKeyHome);
    CHECK (TakeMessages () == Messages{ 2 });
    Tick (40);
    KeyRepeat (event, { 0, 0, kKeyPageDown, window.time });
    CHECK (text->GetValue () == Approx (0.32));
    CHECK (text->GetLastTouch () == window.time);
    TakeMessages ();
    ReleaseKey (kKeyPageDown);
    ReleaseKey (kKeyPageDown);
    CHECK (TakeMessages () == Messages{ 4 });

    Key (kKeyUp);
    text->ClearEditing ();
    ReleaseKey (kKeyUp);
    text->SetMouseEnabled (false);
    CHECK_FALSE (text->KeyDown (event, { 0, 0, kKeyUp, window.time }));
    CHECK (TakeMessages () == Messages{ 2 });
    CHECK (text->GetValue () == Approx (0.33));
}

TEST_CASE_FIXTURE (ReadoutFixture, "A double click opens the field of a read-out, not of the copy above a ring")
{
    for (const std::int32_t flags : { 3, 0 })
    {
        text->SetFlags (flags);
        window.time += 1000;
        Click (kMiddle);
        Click (kMiddle);
        CHECK (text->IsFieldOpen () == (flags != 0));
        Key (kKeyEscape);
    }
}
