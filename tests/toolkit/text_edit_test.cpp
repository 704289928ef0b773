#include "draw_text_edit.h"
#include "overlay_desk.h"
#include "text_analyzer.h"
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

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

/// A read-out of values 0 to 10, shown in tenths, edited as numbers.
struct Readout : OverlayDesk<ZDrawTextEdit>
{
    Readout ()
    {
        control.SetConverters ({ InTenths, TimesTen, OverTen });
        control.SetValueToText ([] (float value, char* text) { PutText (text, std::to_string (value).substr (0, 4)); });
        control.SetValue (0.25f);
    }
    void Open () { DoubleClick (kMiddle); }
    std::string Typed () ///< the field's text; closes it
    {
        const auto typed = Drawn ();
        Stroke (kKeyEscape);
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
    CHECK (r.control.GetDrawRect () == ZRect{ 0, 0, 60, 20 });
    CHECK (r.Drawn () == "2.50"); // not the text at rest
    r.Type ("7 .5");
    r.surface.SetDirty (false);
    CHECK (r.Stroke (kKeyReturn, 0, '\r'));
    CHECK_FALSE (r.IsOpen ());
    CHECK (r.TakeValues () == Values{ 0.75f });
    CHECK (r.surface.IsDirty ());
    CHECK (r.Drawn () == "75 tenths");

    r.Open ();
    r.Stroke (kKeyEnter, 0, 3); // unchanged: the precision of the text
    CHECK (r.TakeValues () == Values{ 0.75f });
    r.control.SetTextAnalyzer (std::make_unique<OnAnalyzer> ());
    r.Open ();
    r.Type ("on");
    r.Stroke (kKeyReturn);
    CHECK (r.TakeValues () == Values{ 1.0f });
}

TEST_CASE (
    "ZTextEdit: escape, a press elsewhere and an unreadable text leave the value alone, the surface is repainted")
{
    Readout r;
    for (const char* text : { "escape", "press", "x", "nan", "1e999" })
    {
        CAPTURE (text);
        r.Open ();
        r.Type (text);
        r.surface.SetDirty (false);
        if (text == std::string_view ("escape"))
            r.Stroke (kKeyEscape, 0, 27);
        else if (text == std::string_view ("press"))
            r.Click (kElsewhere);
        else
            r.Stroke (kKeyReturn);
        CHECK_FALSE (r.IsOpen ());
        CHECK (r.TakeValues ().empty ());
        CHECK (r.surface.IsDirty ());
        CHECK (r.Drawn () == "25 tenths");
    }
}

TEST_CASE ("ZTextEdit: the flags choose between dragging and typing")
{
    Readout r;
    r.control.SetStep (0.125f);
    r.Down (kMiddle);
    r.Move ({ 150, 58 }); // two up, then aside, which does nothing
    r.Move ({ 90, 58 });
    r.Move ({ 90, 40 });
    r.Move ({ 90, 41 });         // back from the stop: at once
    r.Move ({ 90, 45 }, kShift); // fine begins at the present value
    CHECK (r.TakeValues () == Values{ 0.5f, 1.0f, 0.875f, 0.75f });
    r.Up ({ 90, 45 });

    struct Row
    {
        std::int32_t flags;
        bool drags, opens;
    };
    for (const auto& row :
         { Row{ 0, false, false }, Row{ kDragUpAndDown, true, false }, Row{ kEditOnDoubleClick, false, true } })
    {
        CAPTURE (row.flags);
        r.control.SetFlags (row.flags);
        r.Click (kElsewhere);
        r.Down (kMiddle);
        CHECK ((r.capture == &r.control) == row.drags);
        r.Up (kMiddle);
        r.Open ();
        CHECK (r.IsOpen () == row.opens);
        r.Stroke (kKeyEscape);
    }
    CHECK (r.TakeValues ().empty ());

    ZDrawTextEdit alone (nullptr, { 5, 5, 60, 20 }, 3); // no owner, no fields, and no way to say the value
    CHECK (r.Press (alone, { 1, 1 }));
    CHECK_FALSE (r.Press (alone, { 1, 1 }));
    alone.SetText (std::string (254, 'x') + "\u00e4");
    alone.UpdateText ();
    CHECK (alone.GetText () == std::string (254, 'x'));
    alone.SetTextRect ({ 2, 3, 40, 10 });
    CHECK (alone.GetTextPlace () == ZRect{ 7, 8, 45, 15 });
}

TEST_CASE ("ZCanvasTextEditImp: the field is at least 28 by 14, centred over its control, as its hit rectangle is")
{
    Readout r;
    r.control.SetFrame ({ 20, 4, 40, 14 });
    r.DoubleClick ({ 121, 55 });
    CHECK (r.control.GetDrawRect () == ZRect{ 16, 2, 44, 16 });
    r.Down ({ 117, 65 }); // beside the control, in the field
    CHECK (r.IsOpen ());
    r.Up ({ 117, 65 });
    r.Stroke (kKeyEscape);
    CHECK (r.control.GetHitRect () == ZRect{ 20, 4, 40, 14 });
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
    };
    for (const auto& row : rows)
    {
        CAPTURE (row.result);
        Readout r;
        r.clipboard.held = "7\n8";
        r.Open ();
        for (const auto& stroke : row.strokes)
            CHECK (r.Stroke (stroke.key, stroke.modifiers, stroke.character));
        CHECK (r.clipboard.held == row.clipboard);
        CHECK (r.Typed () == row.result);
    }
}

TEST_CASE ("ZCanvasTextEditImp: the mouse sets the caret, selects by dragging, with shift and by words")
{
    // Characters are 6 pixels wide, the text begins 2 pixels inside of the field at 100.
    Readout r;
    const auto at = [] (std::int32_t character, std::int32_t beyond = 0) {
        return ZPoint{ 102 + 6 * character + beyond, 60 };
    };
    const auto check = [&r] (auto act, std::string_view result) // of an "x" typed afterwards
    {
        r.Open ();
        r.Type ("12 345 6");
        act ();
        r.Type ("x");
        CHECK (r.Typed () == result);
    };
    check ([&] { r.Click (at (2, 2), kControl); }, "12x 345 6"); // no reset
    check ([&] { r.Click (at (2, 3)); }, "12 x345 6");
    check ([&] { r.DoubleClick (at (5, 5)); }, "12 x 6");
    check (
        [&]
        {
            r.Click (at (1));
            r.Click (at (4), kShift);
        },
        "1x45 6");
    check (
        [&]
        {
            r.Down (at (6));
            r.Move (at (-9));
            r.Up (at (-9));
        },
        "x 6");

    // A key that closes the field in mid-drag doesn't leave a drag of the value behind.
    r.Open ();
    r.Down (at (1));
    r.Stroke (kKeyEscape);
    r.Move ({ 130, 20 });
    CHECK (r.capture == nullptr);
    CHECK (r.TakeValues ().empty ());

    r.Click (kMiddle); // opening selects all, and the hand's tremble until the release changes nothing
    r.Down (kMiddle);
    r.Move (kMiddle + ZPoint{ 1, 1 });
    r.Up (kMiddle);
    r.Type ("1");
    CHECK (r.Typed () == "1");
}

TEST_CASE ("ZCanvasTextEditImp: a long text scrolls with the caret, also under a pointer that rests outside")
{
    // 56 pixels inside of the field, one of them for the caret: of 20 characters the last 9 fit.
    Readout r;
    r.Open ();
    r.Type ("abcdefghijklmnopqrst");
    const auto textLeft = [&r] { return r.TextCall ().substr (r.TextCall ().rfind ('\'') + 2, 3); };
    CHECK (textLeft () == "37,");
    r.Stroke (kKeyHome);
    CHECK (textLeft () == "102");
    r.Down ({ 150, 60 });
    r.Move ({ 170, 60 });
    CHECK (textLeft () == "91,");
    ZEvent event (r.window);
    for (int i = 0; i < 10; ++i)
        r.surface.Idle (event, r.At ({ 170, 60 }));
    CHECK (textLeft () == "37,");
}

TEST_CASE ("ZCanvasTextEditImp: the caret blinks by the clock, paints only when it changes, and stays on while typing")
{
    Readout r;
    r.window.time = 0xFFFFFFF0u - 1000; // wraps on the way
    r.Open ();
    CHECK_FALSE (r.TickDirties (10));
    CHECK_FALSE (r.TickDirties (499));
    const auto on = r.Painted ().size ();
    CHECK (r.TickDirties (1));
    CHECK (r.Painted ().size () < on);
    r.Stroke (kKeyEnd);
    CHECK (r.control.IsDirty ());
    CHECK_FALSE (r.TickDirties (300));
    CHECK_FALSE (r.TickDirties (499));
    r.control.SetActive (false);
    CHECK (r.Drawn () == "2.50");
}
