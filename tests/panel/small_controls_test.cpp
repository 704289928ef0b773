#include "bypass_button.h"
#include "message_fixture.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

constexpr ZPoint kInArea{ 30, 280 };
constexpr ZPoint kBesideArea{ 8, 280 };

struct BypassFixture : MessageFixture
{
    ZAMX_AnimOnOffButton* button = Add<ZAMX_AnimOnOffButton> ({ 5, 265, 76, 302 }); // not owned: the editor's

    BypassFixture ()
    {
        button->SetAnimActive (GetBitmap ("switch"), 2, 37, {});
        button->SetActiveFramePreset (2);
        button->SetStep (1.0f);
        CHECK (button->GetPressArea () == button->GetFrame ());
        button->SetPressArea ({ 17, 275, 44, 291 });
    }
};

} // namespace

TEST_CASE_FIXTURE (BypassFixture, "A bypass switches at the press, goes on by the wheel up, in its area alone")
{
    const auto turn = [&] (ZPoint point, std::int32_t delta) {
        return button->MouseWheel (event, { point, delta, window.time });
    };
    CHECK_FALSE (Press (kBesideArea));
    CHECK_FALSE (turn (kBesideArea, 1));
    CHECK_FALSE (button->GetBool ());
    Press (kInArea);
    CHECK (Paints ("DrawBitmap switch 5,265,76,302 from 0,37"));
    CHECK_FALSE (Drag (kBesideArea));
    Release (kBesideArea);
    InputDriver::Press (*button, kInArea, 0, kRightButton);
    CHECK (button->GetBool ());
    Click (kInArea);
    CHECK (Paints ("DrawBitmap switch 5,265,76,302 from 0,0"));

    changed.clear ();
    CHECK_FALSE (turn (kInArea, 0));
    CHECK (turn (kInArea, -1));
    CHECK (changed.empty ());
    CHECK (turn (kInArea, 3));
    CHECK (turn (kInArea, 1));
    CHECK (changed == std::vector<std::int32_t>{ kFreeId });
    CHECK (button->GetBool ());
    button->SetMouseEnabled (false);
    CHECK_FALSE (button->KeyDown (event, { 0, 0, kKeyDown, window.time }));
    button->SetMouseEnabled (true);
    CHECK (button->KeyDown (event, { 0, 0, kKeyDown, window.time }));
    CHECK_FALSE (button->GetBool ());
}
