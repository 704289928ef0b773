#include "matrix_menus.h"
#include "overlay_fixture.h"
#include "pane_fixture.h"
#include "parameter_storage_base.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

constexpr ZPoint kMiddle{ 130, 60 }; // of the control
constexpr ZPoint kElsewhere{ 5, 5 };

// Rows are 18 pixels high and begin 4 inside of the menu; an item is 30 pixels wider than its text of 6 a character.
constexpr std::int32_t kRow = 18;
constexpr std::int32_t kEdge = 4;

/// A menu with as many items as there are letters, "a0", "b1" and so on.
struct Choice : OverlayFixture<ZDrawMatrixMenu>
{
    explicit Choice (std::string_view letters)
    {
        for (const char letter : letters)
            control.AddItem (letter + std::to_string (control.GetItemCount ()));
        control.SetStep (1.0f / static_cast<float> (letters.size ()));
        control.SetPlacement (kAtLeftBottom);
    }
    ZRect Rect () const { return control.GetHitRect () + control.GetOrigin (); }
    ZPoint Row (std::int32_t row, std::int32_t column = 0) const ///< a point on it, while open
    {
        return Rect ().TopLeft () + ZPoint{ kEdge + 10 + column * 42, kEdge + row * kRow + 5 };
    }
    std::string Highlighted () { return Text ("SetColor 0,116,138,255"); }
};

} // namespace

TEST_CASE ("ZMatrixMenu: the value selects and checks its item, a picked item is the value, a dismissal says nothing")
{
    Choice c ("abc");
    c.control.SetValue (0.5f);
    CHECK (c.control.IsItemChecked (1));
    CHECK (c.control.GetDisplayText () == "b1");

    c.Click (kMiddle); // a quick click leaves it open
    CHECK (c.Rect () == ZRect{ 100, 70, 150, 70 + 2 * kEdge + 3 * kRow });
    c.whole.SetDirty (false);
    c.Click (c.Row (2));
    CHECK (c.TakeValues () == Values{ 1.0f });
    CHECK (c.control.GetSelected () == 2);
    CHECK_FALSE (c.control.IsItemChecked (1)); // any more
    CHECK (c.whole.IsDirty ());
    CHECK (c.Rect () == ZRect{ 100, 50, 160, 70 });

    c.Click (kMiddle);
    c.whole.SetDirty (false);
    c.Click (kMiddle); // the control itself, beside the open menu
    CHECK_FALSE (c.IsOpen ());
    CHECK (c.whole.IsDirty ());
    CHECK (c.TakeValues ().empty ());
}

TEST_CASE ("ZCanvasMenuImp: a drag from the opening press picks where it is released, one that hardly moves does not")
{
    Choice c ("abc");
    c.control.SetPlacement (0); // at the pointer
    c.Down (kMiddle);
    c.Move (kMiddle + ZPoint{ 3, 3 });
    c.Up (kMiddle + ZPoint{ 3, 3 });
    REQUIRE (c.IsOpen ());
    c.Stroke (kKeyEscape);

    c.Down (kMiddle);
    c.Move (c.Row (1));
    CHECK (c.Highlighted () == "b1");
    c.Up (c.Row (1));
    CHECK (c.TakeValues () == Values{ 0.5f });

    c.Down (kMiddle); // released beside the menu or on what is disabled: still open
    c.Move (kElsewhere);
    c.Up (kElsewhere);
    c.control.SetItemEnabled (0, false);
    c.Click (c.Row (0));
    REQUIRE (c.IsOpen ());
    c.Down (c.Row (0), kControl); // no reset
    c.Move (c.Row (2));
    c.view.SetMouseEnabled (false); // disabled in mid-drag: no choice
    c.Move (c.Row (2));
    CHECK (c.IsOpen ());
    CHECK (c.TakeValues ().empty ());
}

TEST_CASE ("ZCanvasMenuImp: the highlight follows a free pointer, and keys while it rests, painting only on a change")
{
    Choice c ("abc");
    c.Click (kMiddle);
    const auto moveDirties = [&c] (ZPoint pointer)
    {
        c.window.pointer = pointer;
        return c.TickDirties (20);
    };
    CHECK (moveDirties (c.Row (1)));
    CHECK (c.Highlighted () == "b1");
    CHECK_FALSE (moveDirties (c.Row (1) + ZPoint{ 1, 0 }));
    c.Stroke (kKeyDown);
    CHECK_FALSE (moveDirties (c.Row (1) + ZPoint{ 1, 0 }));
    CHECK (c.Highlighted () == "c2");
    CHECK (moveDirties (kElsewhere));
    CHECK (c.Highlighted () == "");
    CHECK (c.Wheel (c.control, -1));
    CHECK (c.Highlighted () == "a0");
    CHECK (c.TakeValues ().empty ());
}

TEST_CASE ("ZCanvasMenuImp: rows of four make columns of 4, 4 and 2, walked by the arrows past what is disabled")
{
    Choice c ("abcdefghac");
    c.control.SetRows (4);
    const auto picks = [&c] (std::vector<std::int32_t> keys, std::int32_t item, char letter = 0) // -1: nothing
    {
        CAPTURE (item);
        c.Click (kMiddle);
        for (const auto key : keys)
            CHECK (c.Stroke (key, 0, letter));
        c.Stroke (kKeyReturn);
        CHECK (c.IsOpen () == (item < 0));
        CHECK (c.TakeValues ().size () == (item < 0 ? 0 : 1));
        CHECK (c.control.GetSelected () == item);
        c.Stroke (kKeyEscape);
    };
    c.control.SetSelected (-1);
    picks ({}, -1);
    picks ({ kKeyDown }, 0);
    picks ({ kKeyRight, kKeyDown, kKeyDown, kKeyDown }, 7); // from the selected one
    picks ({ kKeyRight }, 9);                               // the last column is short
    picks ({ kKeyDown }, 0);                                // around the end
    picks ({ kKeyLeft }, 0);
    picks ({ kKeyUp }, 9);
    for (const std::int32_t disabled : { 0, 4, 9 })
        c.control.SetItemEnabled (disabled, false);
    picks ({ kKeyHome }, 1);
    picks ({ kKeyEnd }, 8);
    picks ({ kKeyLeft }, 8); // 4 and 0 are disabled: it stays
    picks ({ kKeyNone }, 5, 'F');
    picks ({ kKeyNone }, 8, 'a');
    picks ({ kKeyNone }, 2, 'c'); // 9, which is next, is disabled
    c.Click (kMiddle);
    CHECK (c.Rect () == ZRect{ 100, 70, 100 + 2 * kEdge + 3 * 42, 70 + 2 * kEdge + 4 * kRow });
    c.Click (c.Row (0, 2));
    CHECK (c.TakeValues ().size () == 1);
    CHECK (c.control.GetSelected () == 8);
    c.control.SetAllEnabled (false);
    c.control.SetSelected (-1);
    picks ({ kKeyHome, kKeyDown, kKeyUp, kKeyRight, kKeySpace }, -1);
}

TEST_CASE ("ZCanvasMenuImp: the placement, and the surface's edges, which long columns and wide ones bend to")
{
    struct Row
    {
        std::int32_t placement;
        std::size_t items;
        ZPoint at;   // of the control, in the view
        ZRect place; // of the menu, in root coordinates
    };
    for (const auto& row : {
             Row{ kAtLeftTop, 2, {}, { 100, 50, 150, 94 } },
             Row{ kAtLeftBottom, 2, {}, { 100, 70, 150, 114 } },
             Row{ kAtRightTop, 2, {}, { 160, 50, 210, 94 } },
             Row{ kAtRightBottom, 2, {}, { 160, 70, 210, 114 } },
             Row{ kCenteredAtTop, 2, {}, { 105, 50, 155, 94 } },
             Row{ kCenteredAtBottom, 2, {}, { 105, 70, 155, 114 } },
             Row{ 7, 2, {}, { 130, 60, 180, 104 } },                        // at the pointer
             Row{ kAtRightBottom, 5, { 130, 70 }, { 290, 102, 340, 200 } }, // moved up
             Row{ kAtRightBottom, 15, { 130, 70 }, { 290, 12, 388, 200 } }, // one column would not fit
             Row{ kAtRightBottom, 200, {}, { 12, 12, 400, 200 } },          // 20 columns share 392
             Row{ kCenteredAtBottom, 100, {}, { 0, 12, 398, 200 } },
         })
    {
        CAPTURE (row.placement);
        CAPTURE (row.items);
        Choice c (std::string (row.items, 'a'));
        c.control.MoveTo (row.at);
        c.control.SetPlacement (row.placement);
        c.Click (kMiddle + row.at);
        CHECK (c.Rect () == row.place);
    }
}

TEST_CASE ("ZMatrixMenu: a parameter's list fills the menu, and its value is shown as its text")
{
    static const char* const kTexts[]{ "Off", "Rhythm & blues", "", nullptr };
    ZParameterStorageBase storage;
    storage.Allocate (1, 4);
    storage.SetListTexts (3, kTexts);
    storage.SetType (3, kList);
    storage.SetNormalized (3, 0.5f);
    Choice c ("abcd");
    c.control.SetStorage (&storage);
    CHECK (c.control.GetItemCount () == 3);
    CHECK (c.TextCall () == "DrawText 'Rhythm & blues' 100,50,160,70 1");
    storage.SetNormalized (3, 1.0f);
    c.control.UpdateFromStorage (2);
    CHECK (c.control.GetSelected () == 1);
    c.control.UpdateFromStorage (3);
    CHECK (c.control.GetSelected () == 2);
    c.Wheel (c.control, -1);
    CHECK (c.TakeValues () == Values{ 0.5f });

    c.Click (kMiddle); // it may change while it is open
    c.control.RemoveAllItems ();
    CHECK (c.control.GetSelected () == -1);
    c.Drawn (c.control);
    c.Stroke (kKeyDown);
    c.Click (c.Row (1));
    CHECK (c.TakeValues ().empty ());
}

TEST_CASE ("ZAnimMatrixMenu: shows its item's frame, is stepped with nothing selected, and opens only with menus")
{
    ControlFixture<ZAnimMatrixMenu> fixture ({ 0, 0, 60, 20 });
    auto& menu = fixture.control;
    menu.SetAnimActive (&fixture.strip, 4, 1, {});
    menu.SetStep (0.25f);
    for (const char* text : { "four", "three", "two", "one" })
        menu.InsertItem (0, text);
    menu.SetSelected (1);
    CHECK (fixture.FrameShown (menu) == 1);
    for (const auto& [delta, selected] : { std::pair{ 1, 0 }, { 3, 2 }, { -2, 1 } })
    {
        menu.SetSelected (-1);
        CHECK (fixture.Wheel (menu, delta));
        CHECK (menu.GetSelected () == selected);
    }
    menu.SetSelected (3);
    CHECK (menu.RemoveItem (1));
    CHECK (menu.GetSelected () == -1); // there is no item 3 any more
    CHECK_FALSE (fixture.Press (menu, { 1, 1 }));
}
