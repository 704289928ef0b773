#include "anim_matrix_menu.h"
#include "draw_matrix_menu.h"
#include "overlay_desk.h"
#include "parameter_storage_base.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;

namespace
{

constexpr ZPoint kMiddle{ 130, 60 }; // of the control
constexpr ZPoint kElsewhere{ 5, 5 };

// Rows are 18 pixels high and begin 4 inside of the menu; an item is 30 pixels wider than its text of 6 a character.
constexpr std::int32_t kRow = 18;
constexpr std::int32_t kEdge = 4;

/// A menu of 60 by 20 in a view at (100, 50), with as many items as there are letters, "a0", "b1" and so on.
struct Choice
{
    OverlayDesk desk;
    ZView view{ &desk, { 100, 50, 300, 150 } };
    ZDrawMatrixMenu menu{ &desk, { 0, 0, 60, 20 }, 3 };

    explicit Choice (std::string_view letters)
    {
        desk.surface.AddPane (&view);
        view.AddPane (&menu);
        desk.Adopt (menu);
        for (const char letter : letters)
            menu.AddItem (letter + std::to_string (menu.GetItemCount ()));
        menu.SetStep (1.0f / static_cast<float> (letters.size ()));
        menu.SetPlacement (kAtLeftBottom);
        menu.SetFontActive ({}, kAlignLeft, 2, 0);
    }
    bool IsOpen () const { return desk.modal == &menu; }
    ZPoint Row (std::int32_t row, std::int32_t column = 0) const ///< a point on it, while open
    {
        const auto rect = menu.GetHitRect () + menu.GetOrigin ();
        return { rect.left + kEdge + 10 + column * 42, rect.top + kEdge + row * kRow + 5 };
    }
    std::vector<std::int32_t> PickByKeys (std::initializer_list<std::int32_t> keys, char letter = 0)
    {
        desk.Click (kMiddle);
        for (const auto key : keys)
            CHECK (desk.Stroke (key, 0, letter));
        desk.Stroke (kKeyReturn);
        if (IsOpen ())
            desk.Stroke (kKeyEscape);
        std::vector<std::int32_t> picked;
        for (const auto value : desk.TakeValues ())
            picked.push_back (static_cast<std::int32_t> (value * static_cast<float> (menu.GetItemCount () - 1) + 0.5f));
        return picked;
    }
    std::string Highlighted () ///< the text drawn on the highlight
    {
        const auto calls = desk.Painted (menu);
        const auto fill = std::find (calls.begin (), calls.end (), "SetColor 52,92,148,255");
        const auto text =
            std::find_if (fill, calls.end (), [] (const auto& call) { return call.starts_with ("DrawT"); });
        return text == calls.end () ? "" : text->substr (10, text->rfind ('\'') - 10);
    }
};

} // namespace

TEST_CASE ("ZMatrixMenu: the value selects and checks its item, a picked item is the value, a dismissal says nothing")
{
    Choice c ("abc");
    c.menu.SetSelected (99);
    CHECK (c.menu.GetSelected () == -1);
    c.menu.SetValue (0.5f);
    CHECK (c.menu.GetSelected () == 1);
    CHECK (c.menu.IsItemChecked (1));
    CHECK (c.menu.GetDisplayText () == "b1");

    c.desk.Click (kMiddle); // a quick click leaves it open
    REQUIRE (c.IsOpen ());
    CHECK (c.menu.GetDrawRect () == ZRect{ 0, 20, 50, 20 + 2 * kEdge + 3 * kRow });
    c.desk.surface.SetDirty (false);
    c.desk.Click (c.Row (2));
    CHECK_FALSE (c.IsOpen ());
    CHECK (c.desk.TakeValues () == std::vector<float>{ 1.0f });
    CHECK (c.menu.GetSelected () == 2);
    CHECK_FALSE (c.menu.IsItemChecked (1)); // any more
    CHECK (c.desk.surface.IsDirty ());
    CHECK (c.menu.GetHitRect () == ZRect{ 0, 0, 60, 20 });

    const auto dismiss = [&c] (auto act)
    {
        c.desk.Click (kMiddle);
        REQUIRE (c.IsOpen ());
        c.desk.surface.SetDirty (false);
        act ();
        CHECK_FALSE (c.IsOpen ());
        CHECK (c.desk.surface.IsDirty ());
        CHECK (c.desk.TakeValues ().empty ());
        CHECK (c.menu.GetSelected () == 2);
    };
    dismiss ([&c] { c.desk.Stroke (kKeyEscape, 0, 27); });
    dismiss ([&c] { c.desk.Click (kElsewhere); });
    dismiss ([&c] { c.desk.Click (kMiddle); }); // the control itself, beside the open menu
}

TEST_CASE ("ZCanvasMenuImp: a drag from the opening press picks where it is released, one that hardly moves does not")
{
    Choice c ("abc");
    c.menu.SetPlacement (0); // at the pointer
    c.desk.Down (kMiddle);
    CHECK (c.desk.capture == &c.menu);
    c.desk.Move (kMiddle + ZPoint{ 3, 3 });
    c.desk.Up (kMiddle + ZPoint{ 3, 3 });
    REQUIRE (c.IsOpen ());
    CHECK (c.menu.GetHitRect ().TopLeft () == ZPoint{ 30, 10 });
    c.desk.Stroke (kKeyEscape);

    c.desk.Down (kMiddle);
    c.desk.Move (c.Row (1));
    CHECK (c.Highlighted () == "b1");
    c.desk.Up (c.Row (1));
    CHECK (c.desk.TakeValues () == std::vector<float>{ 0.5f });

    c.desk.Down (kMiddle); // released beside the menu or on what is disabled: still open
    c.desk.Move (kElsewhere);
    c.desk.Up (kElsewhere);
    c.menu.SetItemEnabled (0, false);
    c.desk.Click (c.Row (0));
    REQUIRE (c.IsOpen ());
    c.desk.Down (c.Row (0), kControl); // no reset
    c.desk.Move (c.Row (2));
    c.view.SetMouseEnabled (false); // disabled in mid-drag: no choice
    c.desk.Move (c.Row (2));
    CHECK (c.IsOpen ());
    CHECK (c.desk.TakeValues ().empty ());
}

TEST_CASE ("ZCanvasMenuImp: the highlight follows a free pointer, and keys while it rests, painting only on a change")
{
    Choice c ("abc");
    c.desk.Click (kMiddle);
    const auto tickDirties = [&c] (ZPoint pointer)
    {
        for (ZPane* pane : std::initializer_list<ZPane*>{ &c.desk.surface, &c.view, &c.menu })
            pane->SetDirty (false);
        c.desk.window.pointer = pointer;
        c.desk.Tick (20);
        return c.menu.IsDirty ();
    };
    CHECK (c.Highlighted () == "");
    CHECK (tickDirties (c.Row (1)));
    CHECK (c.Highlighted () == "b1");
    CHECK_FALSE (tickDirties (c.Row (1) + ZPoint{ 1, 0 }));
    c.desk.Stroke (kKeyDown);
    CHECK_FALSE (tickDirties (c.Row (1) + ZPoint{ 1, 0 }));
    CHECK (c.Highlighted () == "c2");
    CHECK (tickDirties (kElsewhere));
    CHECK (c.Highlighted () == "");
    CHECK (c.desk.Wheel (c.menu, -1));
    CHECK (c.Highlighted () == "a0");
    CHECK (c.desk.TakeValues ().empty ());
}

TEST_CASE ("ZCanvasMenuImp: rows of four make columns of 4, 4 and 2, walked by the arrows past what is disabled")
{
    Choice c ("abcdefghac");
    c.menu.SetRows (4);
    c.desk.Click (kMiddle);
    CHECK (c.menu.GetDrawRect () == ZRect{ 0, 20, 2 * kEdge + 3 * 42, 20 + 2 * kEdge + 4 * kRow });
    c.desk.Click (c.Row (1, 2));
    CHECK (c.desk.TakeValues () == std::vector<float>{ 1.0f });
    c.menu.SetSelected (-1);

    using Items = std::vector<std::int32_t>;
    CHECK (c.PickByKeys ({}) == Items{});
    CHECK (c.PickByKeys ({ kKeyDown }) == Items{ 0 });
    CHECK (c.PickByKeys ({ kKeyRight, kKeyDown, kKeyDown, kKeyDown }) == Items{ 7 }); // from the selected one
    CHECK (c.PickByKeys ({ kKeyRight }) == Items{ 9 });                               // the last column is short
    CHECK (c.PickByKeys ({ kKeyRight }) == Items{ 9 });
    CHECK (c.PickByKeys ({ kKeyDown }) == Items{ 0 }); // around the end
    CHECK (c.PickByKeys ({ kKeyLeft }) == Items{ 0 });
    CHECK (c.PickByKeys ({ kKeyUp }) == Items{ 9 });
    for (const std::int32_t disabled : { 0, 4, 9 })
        c.menu.SetItemEnabled (disabled, false);
    CHECK (c.PickByKeys ({ kKeyHome }) == Items{ 1 });
    CHECK (c.PickByKeys ({ kKeyEnd }) == Items{ 8 });
    CHECK (c.PickByKeys ({ kKeyLeft }) == Items{ 8 }); // 4 and 0 are disabled: it stays
    CHECK (c.PickByKeys ({ kKeyNone }, 'F') == Items{ 5 });
    CHECK (c.PickByKeys ({ kKeyNone }, 'a') == Items{ 8 });
    CHECK (c.PickByKeys ({ kKeyNone }, 'c') == Items{ 2 }); // 9, which is next, is disabled
    c.menu.SetAllEnabled (false);
    CHECK (c.PickByKeys ({ kKeyHome, kKeyDown, kKeyUp, kKeyRight, kKeySpace }) == Items{});
}

TEST_CASE ("ZCanvasMenuImp: the placement, and the surface's edges, which long columns and wide ones bend to")
{
    struct Row
    {
        std::int32_t placement;
        ZPoint topLeft; // of a menu of 50 by 44, in root coordinates; the control is at (100, 50) to (160, 70)
    };
    for (const auto& row :
         { Row{ kAtLeftTop, { 100, 50 } }, Row{ kAtLeftBottom, { 100, 70 } }, Row{ kAtRightTop, { 160, 50 } },
           Row{ kAtRightBottom, { 160, 70 } }, Row{ kCenteredAtTop, { 105, 50 } },
           Row{ kCenteredAtBottom, { 105, 70 } }, Row{ 7, kMiddle } })
    {
        Choice c ("ab");
        c.menu.SetPlacement (row.placement);
        c.desk.Click (kMiddle);
        CHECK (c.menu.GetHitRect ().TopLeft () + c.menu.GetOrigin () == row.topLeft);
        CHECK (c.menu.GetHitRect ().Width () == 50);
    }
    const auto opened = [] (std::size_t items, ZPoint at, std::int32_t placement = kAtRightBottom)
    {
        Choice c (std::string (items, 'a'));
        c.menu.MoveTo (at);
        c.menu.SetPlacement (placement);
        c.desk.Click (c.menu.GetOrigin () + at + ZPoint{ 5, 5 });
        return c.menu.GetHitRect () + c.menu.GetOrigin ();
    };
    CHECK (opened (2, { 130, 70 }) == ZRect{ 290, 140, 340, 184 });
    CHECK (opened (5, { 130, 70 }) == ZRect{ 290, 102, 340, 200 }); // moved up
    CHECK (opened (10, { 130, 70 }) == ZRect{ 290, 12, 340, 200 }); // as high as the surface allows
    CHECK (opened (15, { 130, 70 }) == ZRect{ 290, 12, 388, 200 }); // one column would not fit; 3 characters need 48
    CHECK (opened (200, { 0, 0 }) == ZRect{ 12, 12, 400, 200 });    // 20 columns share 392
    CHECK (opened (100, {}, kCenteredAtBottom) == ZRect{ 0, 12, 398, 200 });
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
    c.menu.SetStorage (&storage);
    CHECK (c.menu.GetItemCount () == 3);
    CHECK (c.menu.GetSelected () == 1);
    CHECK (c.menu.GetDisplayText () == "Rhythm & blues");
    CHECK (c.menu.GetItemText (2) == "");
    const auto calls = c.desk.Painted (c.menu);
    CHECK (calls.back () == "DrawText 'Rhythm & blues' 100,50,160,70 1");
    storage.SetNormalized (3, 1.0f);
    c.menu.UpdateFromStorage (2);
    CHECK (c.menu.GetSelected () == 1);
    c.menu.UpdateFromStorage (3);
    CHECK (c.menu.GetSelected () == 2);
    c.desk.Wheel (c.menu, -1);
    CHECK (c.desk.TakeValues () == std::vector<float>{ 0.5f });

    c.desk.Click (kMiddle); // it may change while it is open
    c.menu.RemoveAllItems ();
    CHECK (c.menu.GetSelected () == -1);
    c.desk.Painted (c.menu);
    c.desk.Stroke (kKeyDown);
    c.desk.Click (c.Row (1));
    CHECK (c.desk.TakeValues ().empty ());
}

TEST_CASE ("ZMatrixMenu: with nothing selected the first step only selects")
{
    Choice c ("abcd");
    CHECK (c.desk.Wheel (c.menu, 1));
    CHECK (c.menu.GetSelected () == 0);
    CHECK (c.desk.TakeValues ().empty ()); // the value is what it was
    CHECK (c.menu.IsItemChecked (0));
    CHECK (c.desk.Wheel (c.menu, 1));
    CHECK (c.menu.GetSelected () == 1);
    c.desk.TakeValues ();

    c.menu.SetSelected (-1);
    CHECK (c.desk.Key (c.menu, kKeyDown));
    CHECK (c.menu.GetSelected () == 1);
    c.menu.SetSelected (-1);
    CHECK (c.desk.Wheel (c.menu, 3));
    CHECK (c.menu.GetSelected () == 3);
    CHECK_FALSE (c.desk.Wheel (c.menu, 1));
    CHECK (c.menu.StepValue (0.0f, 2, 1e30f) == 1.0f);
}

TEST_CASE ("ZMatrixMenu: items by their index, bad ones answered, with or without menus at the owner")
{
    PaneDesk desk;
    ZAnimMatrixMenu menu (&desk, { 0, 0, 60, 20 }, 3);
    menu.InsertItem (0, "two");
    menu.InsertItem (0, "one");
    menu.InsertItem (9, std::string (254, 'x') + "\u00e4");
    CHECK (menu.GetItemText (1) == "two");
    CHECK (menu.GetItemText (2).size () == 254);
    menu.SetSelected (2);
    CHECK (menu.RemoveItem (2));
    CHECK (menu.GetSelected () == -1);
    CHECK_FALSE (menu.SetSelectedText (""));
    CHECK_FALSE (menu.IsItemEnabled (2));
    CHECK_FALSE (desk.Press (menu, { 1, 1 }));

    auto strip = NamedBitmap ("strip");
    menu.SetAnimActive (&strip, 2, 20, {});
    RecordingCanvasImp paper;
    ZOnscreenCanvas canvas (paper);
    menu.Draw (canvas, 0);
    menu.SetSelected (1);
    menu.Draw (canvas, 0);
    const auto calls = paper.Take ();
    CHECK (calls.front () == "DrawBitmap strip 0,0,60,20 from 0,0");
    CHECK (calls.back () == "DrawBitmap strip 0,0,60,20 from 0,20");
}
