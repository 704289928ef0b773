#include "draw_text_edit.h"
#include "overlay_desk.h"
#include "text_analyzer.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <initializer_list>

using namespace tessaly;

namespace
{

constexpr ZPoint kMiddle{ 130, 60 }; // of the control
constexpr ZPoint kElsewhere{ 5, 150 };

float TimesTen (float value, float, float)
{
    return value * 10.0f;
}
float OverTen (float value, float, float)
{
    return value / 10.0f;
}
void InTenths (float value, char* text)
{
    PutText (text, std::to_string (static_cast<int> (value * 10.0f + 0.5f)) + " tenths");
}

/// Takes "on" and nothing else.
struct OnAnalyzer final : ZTextAnalyzer
{
    bool IsValid (char* text) override { return std::string_view (text) == "on"; }
    float ToValue (const char*) override { return 10.0f; }
};

/// A read-out of 60 by 20 in a view at (100, 50): values 0 to 10, shown in tenths, edited as numbers.
struct Readout
{
    OverlayDesk desk;
    ZView view{ &desk, { 100, 50, 300, 150 } };
    ZDrawTextEdit edit{ &desk, { 0, 0, 60, 20 }, 3 };

    Readout ()
    {
        desk.surface.AddPane (&view);
        view.AddPane (&edit);
        desk.Adopt (edit);
        edit.SetConverters ({ InTenths, TimesTen, OverTen });
        edit.SetValueToText ([] (float value, char* text) { PutText (text, std::to_string (value).substr (0, 4)); });
        edit.SetFontActive ({}, kAlignLeft, 2, 0);
        edit.SetValue (0.25f);
        desk.surface.SetDirty (false);
    }
    bool IsOpen () const { return desk.modal == &edit; }
    void Open () { desk.DoubleClick (kMiddle); }
    std::string TextCall () ///< by which a pass draws the text
    {
        const auto calls = desk.Painted (edit);
        const auto isText = [] (const std::string& call) { return call.starts_with ("DrawText"); };
        const auto text = std::find_if (calls.begin (), calls.end (), isText);
        return text == calls.end () ? "DrawText ''" : *text;
    }
    std::string Drawn ()
    {
        const auto call = TextCall ();
        return call.substr (10, call.rfind ('\'') - 10);
    }
    std::string Typed () ///< the field's text; closes it
    {
        const auto typed = Drawn ();
        desk.Stroke (kKeyEscape);
        return typed;
    }
};

} // namespace

TEST_CASE ("ZTextEdit: a double click opens the field over the text, and what is typed and returned is the value")
{
    Readout r;
    CHECK (r.Drawn () == "25 tenths");
    r.Open ();
    REQUIRE (r.IsOpen ());
    CHECK (r.desk.TakeValues ().empty ());
    CHECK (r.edit.GetDrawRect () == ZRect{ 0, 0, 60, 20 });
    CHECK (r.Drawn () == "2.50"); // not the text at rest
    r.desk.Type ("7 .5");
    CHECK (r.desk.Stroke (kKeyReturn, 0, '\r'));
    CHECK_FALSE (r.IsOpen ());
    CHECK (r.desk.TakeValues () == std::vector<float>{ 0.75f });
    CHECK (r.desk.surface.IsDirty ());
    CHECK (r.Drawn () == "75 tenths");

    r.Open ();
    r.desk.Stroke (kKeyEnter, 0, 3); // unchanged: the precision of the text
    CHECK (r.desk.TakeValues () == std::vector<float>{ 0.75f });
    r.edit.SetTextAnalyzer (std::make_unique<OnAnalyzer> ());
    r.Open ();
    r.desk.Type ("on");
    r.desk.Stroke (kKeyReturn);
    CHECK (r.desk.TakeValues () == std::vector<float>{ 1.0f });
    CHECK_FALSE (r.desk.Stroke (kKeyHome));
}

TEST_CASE (
    "ZTextEdit: escape, a press elsewhere and an unreadable text leave the value alone, the surface is repainted")
{
    Readout r;
    const auto closesSilently = [&r] (auto close)
    {
        r.Open ();
        REQUIRE (r.IsOpen ());
        r.desk.Type ("9");
        r.desk.surface.SetDirty (false);
        close ();
        CHECK_FALSE (r.IsOpen ());
        CHECK (r.desk.TakeValues ().empty ());
        CHECK (r.desk.surface.IsDirty ());
        CHECK (r.Drawn () == "25 tenths");
    };
    closesSilently ([&r] { r.desk.Stroke (kKeyEscape, 0, 27); });
    closesSilently ([&r] { r.desk.Click (kElsewhere); });
    for (const char* unreadable : { "x", "nan", "1e999" })
        closesSilently (
            [&]
            {
                r.desk.Stroke (kKeyNone, kControl, 'a');
                r.desk.Type (unreadable);
                r.desk.Stroke (kKeyReturn);
            });
}

TEST_CASE ("ZTextEdit: the flags choose between dragging and typing")
{
    Readout r;
    r.edit.SetStep (0.125f);
    r.desk.Click (kMiddle);
    r.desk.Down (kMiddle + ZPoint{ 1, 0 });
    r.desk.Move ({ 150, 58 }); // two up, then aside, which does nothing
    r.desk.Move ({ 90, 58 });
    CHECK (r.desk.TakeValues () == std::vector<float>{ 0.5f });
    r.desk.Move ({ 90, 40 });
    r.desk.Move ({ 90, 41 }); // back from the stop: at once
    CHECK (r.desk.TakeValues () == std::vector<float>{ 1.0f, 0.875f });
    r.desk.Move ({ 90, 45 }, kShift); // fine begins at the present value
    CHECK (r.desk.TakeValues () == std::vector<float>{ 0.75f });
    r.desk.Up ({ 90, 45 });

    r.edit.SetFlags (kDragUpAndDown);
    r.Open ();
    CHECK_FALSE (r.IsOpen ());
    r.desk.Down (kMiddle);
    CHECK (r.desk.capture == &r.edit);
    r.desk.Up (kMiddle);

    r.edit.SetFlags (kEditOnDoubleClick);
    r.desk.Click (kMiddle);
    r.desk.Down (kMiddle + ZPoint{ 1, 1 });
    CHECK (r.desk.capture == nullptr);
    r.Open ();
    CHECK (r.IsOpen ());
    r.desk.Stroke (kKeyEscape);

    r.edit.SetFlags (0);
    r.Open ();
    CHECK_FALSE (r.IsOpen ());
    CHECK (r.desk.TakeValues ().empty ());

    ZDrawTextEdit alone (nullptr, { 5, 5, 60, 20 }, 3); // no owner, no fields, and no way to say the value
    CHECK (r.desk.Press (alone, { 1, 1 }));
    CHECK_FALSE (r.desk.Press (alone, { 1, 1 }));
    alone.SetText (std::string (254, 'x') + "\u00e4");
    alone.UpdateText ();
    CHECK (alone.GetText () == std::string (254, 'x'));
    alone.SetTextRect ({ 2, 3, 40, 10 });
    CHECK (alone.GetTextPlace () == ZRect{ 7, 8, 45, 15 });
}

TEST_CASE ("ZCanvasTextEditImp: the field is at least 28 by 14, centred over its control, as its hit rectangle is")
{
    Readout r;
    r.edit.SetFrame ({ 20, 4, 40, 14 });
    r.desk.DoubleClick ({ 121, 55 });
    REQUIRE (r.IsOpen ());
    CHECK (r.edit.GetDrawRect () == ZRect{ 16, 2, 44, 16 });
    CHECK (r.edit.GetHitRect () == ZRect{ 16, 2, 44, 16 });
    r.desk.Down ({ 117, 65 }); // beside the control, in the field
    CHECK (r.IsOpen ());
    r.desk.Up ({ 117, 65 });
    r.desk.Stroke (kKeyEscape);
    CHECK (r.edit.GetHitRect () == ZRect{ 20, 4, 40, 14 });
}

TEST_CASE ("ZCanvasTextEditImp: keys edit and copy, characters arrive byte by byte, and no key passes by")
{
    struct Stroke
    {
        std::int32_t key;
        std::int32_t modifiers = 0;
        char character = 0;
    };
    struct Row
    {
        std::vector<Stroke> strokes; // on "2.50", all selected
        std::string result;
        std::string clipboard = "7\n8";
    };
    const std::vector<Row> rows{
        { { { kKeyEnd }, { kKeyBack, 0, 8 } }, "2.5" },
        { { { kKeyHome }, { kKeyRight, kShift }, { kKeyNone, 0, '4' } }, "4.50" },
        { { { kKeyHome }, { kKeyRight, kControl }, { kKeyNone, 0, 'k' } }, "2.50k" },
        { { { kKeyEnd }, { kKeyBack, kControl, 8 } }, "" },
        { { { kKeyNone, kControl, 'c' }, { kKeyEnd }, { kKeyNone, kControl, 'v' } }, "2.502.50", "2.50" },
        { { { kKeyEnter, kControl, 3 }, { kKeyEnd } }, "2.50", "2.50" },
        { { { kKeyInsert, kControl }, { kKeyHome }, { kKeyInsert, kShift } }, "2.502.50", "2.50" },
        { { { kKeyDelete, kShift, 127 }, { kKeyNone, kControl, 24 } }, "", "2.50" }, // X as a control character
        { { { kKeyHome }, { kKeyNone, kCommand, 'v' } }, "782.50" },                 // the line break is left out
        { { { kKeyNone, kControl, 'a' }, { kKeySpace, 0, ' ' }, { kKeyNumPad0 + 3, 0, '3' } }, " 3" },
        { { { kKeyNone, kControl | kAlt, '@' } }, "@" }, // a third level of the keyboard
        { { { kKeyNone, kControl, 'q' }, { kKeyNone, kAlt, 'f' }, { kKeyTab, 0, 9 }, { kKeyUp }, { kKeyF1 } }, "2.50" },
        { { { kKeyEnd }, { kKeyNone, 0, '\xE2' }, { kKeyNone, 0, '\x82' }, { kKeyNone, 0, '\xAC' } }, "2.50\u20ac" },
        { { { kKeyEnd }, { kKeyNone, 0, '\xE2' }, { kKeyNone, 0, '\x82' }, { kKeyNone, 0, 'x' } }, "2.50x" },
        { { { kKeyEnd }, { kKeyNone, 0, '\xE2' }, { kKeyLeft }, { kKeyNone, 0, '\x82' }, { kKeyNone, 0, '\xAC' } },
          "2.50" },
        { { { kKeyEnd }, { kKeyNone, 0, '\xAC' }, { kKeyNone, 0, '\xC3' }, { kKeyNone, 0, '\xA9' } }, "2.50\u00e9" },
    };
    for (const auto& row : rows)
    {
        CAPTURE (row.result);
        Readout r;
        r.desk.clipboard.held = "7\n8";
        r.Open ();
        for (const auto& stroke : row.strokes)
            CHECK (r.desk.Stroke (stroke.key, stroke.modifiers, stroke.character));
        CHECK (r.desk.clipboard.held == row.clipboard);
        CHECK (r.Typed () == row.result);
    }
}

TEST_CASE ("ZCanvasTextEditImp: the mouse sets the caret, selects by dragging, with shift and by words")
{
    // Characters are 6 pixels wide, the text begins 2 pixels inside of the field at 100.
    Readout r;
    const auto at = [] (std::int32_t character) { return ZPoint{ 102 + 6 * character, 60 }; };
    const auto result = [&r, at] (auto act, std::string_view typed)
    {
        r.Open ();
        r.desk.Type ("12 345 6");
        act ();
        r.desk.Type (typed);
        return r.Typed ();
    };
    CHECK (result ([&] { r.desk.Click (at (2) + ZPoint{ 2, 0 }, kControl); }, "x") == "12x 345 6"); // no reset
    CHECK (result ([&] { r.desk.Click (at (2) + ZPoint{ 3, 0 }); }, "x") == "12 x345 6");
    CHECK (result ([&] { r.desk.DoubleClick (at (5) + ZPoint{ 5, 0 }); }, "x") == "12 x 6");
    const auto withShift = [&]
    {
        r.desk.Click (at (1));
        r.desk.Click (at (4), kShift);
    };
    CHECK (result (withShift, "x") == "1x45 6");
    const auto byDrag = [&]
    {
        r.desk.Down (at (6));
        r.desk.Move (at (-9));
        r.desk.Up (at (-9));
    };
    CHECK (result (byDrag, "x") == "x 6");
    CHECK (r.desk.TakeValues ().empty ());

    // A key that closes the field in mid-drag doesn't leave a drag of the value behind.
    r.Open ();
    r.desk.Down (at (1));
    r.desk.Stroke (kKeyEscape);
    r.desk.Move ({ 130, 20 });
    CHECK (r.desk.capture == nullptr);
    CHECK (r.desk.TakeValues ().empty ());

    r.desk.Click (kMiddle); // opening selects all, and the hand's tremble until the release changes nothing
    r.desk.Down (kMiddle);
    r.desk.Move (kMiddle + ZPoint{ 1, 1 });
    r.desk.Up (kMiddle);
    r.desk.Type ("1");
    CHECK (r.Typed () == "1");
}

TEST_CASE ("ZCanvasTextEditImp: a long text scrolls with the caret, also under a pointer that rests outside")
{
    // 56 pixels inside of the field, one of them for the caret: of 20 characters the last 9 fit.
    Readout r;
    r.Open ();
    r.desk.Type ("abcdefghijklmnopqrst");
    const auto textLeft = [&r] { return r.TextCall ().substr (r.TextCall ().rfind ('\'') + 2, 3); };
    CHECK (textLeft () == "37,");
    r.desk.Stroke (kKeyHome);
    CHECK (textLeft () == "102");
    r.desk.Down ({ 150, 60 });
    r.desk.Move ({ 170, 60 });
    for (int i = 0; i < 10; ++i)
        r.desk.Tick (20); // without the button: the pointer is free
    CHECK (textLeft () == "91,");
    ZEvent event (r.desk.window);
    for (int i = 0; i < 10; ++i)
        r.desk.surface.Idle (event, r.desk.At ({ 170, 60 }));
    CHECK (textLeft () == "37,");
}

TEST_CASE ("ZCanvasTextEditImp: the caret blinks by the clock, paints only when it changes, and stays on while typing")
{
    Readout r;
    r.Open ();
    const auto inTick = [&r] (std::uint32_t milliseconds)
    {
        r.edit.SetDirty (false);
        r.view.SetDirty (false);
        r.desk.surface.SetDirty (false);
        r.desk.Tick (milliseconds);
        return r.edit.IsDirty ();
    };
    CHECK_FALSE (inTick (10));
    CHECK_FALSE (inTick (499));
    const auto on = r.desk.Painted (r.edit).size ();
    CHECK (inTick (1));
    CHECK (r.desk.Painted (r.edit).size () < on);
    r.desk.Stroke (kKeyEnd);
    CHECK (r.edit.IsDirty ());
    CHECK_FALSE (inTick (300));
    CHECK_FALSE (inTick (499));
    r.desk.window.time = 0xFFFFFFF0u;
    r.desk.Stroke (kKeyEnd);
    CHECK_FALSE (inTick (0));
    CHECK_FALSE (inTick (100)); // the clock has wrapped
    r.edit.SetActive (false);
    CHECK (r.Drawn () == "2.50");
}
