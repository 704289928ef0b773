#include "overlay_fixture.h"
#include "strip_text_analyzer.h"
#include "text_edits.h"
#include <cmath>
#include <doctest/doctest.h>

using namespace tessaly;
using Values = std::vector<float>;

namespace
{

constexpr ZPoint kMiddle{ 130, 60 }; // of the control
constexpr ZPoint kElsewhere{ 5, 150 };

/// A read-out of values 0 to 10, shown as whole numbers, edited with two digits more.
struct Readout : OverlayFixture<ZDrawTextEdit>
{
    Readout ()
    {
        control.SetConverters ({ [] (float plain, char* text)
                                 { PutText (text, std::to_string (std::lround (plain)) + " whole"); },
                                 [] (float value, float, float) { return value * 10.0f; },
                                 [] (float plain, float, float) { return plain / 10.0f; } });
        control.SetValueToText ([] (float value, char* text) { PutText (text, std::to_string (value).substr (0, 4)); });
        control.SetValue (0.25f);
    }
    void Open () { DoubleClick (kMiddle); }
};

} // namespace

TEST_CASE ("ZTextEdit: a double click opens the field over the text, and what is typed and returned is the value")
{
    Readout r;
    CHECK (r.Text () == "3 whole");
    r.Open ();
    REQUIRE (r.IsOpen ());
    CHECK (r.Text () == "2.50"); // not the text at rest
    r.Type ("7 .5");
    r.whole.SetDirty (false);
    CHECK (r.Stroke (kKeyReturn, 0, '\r'));
    CHECK_FALSE (r.IsOpen ());
    CHECK (r.TakeValues () == Values{ 0.75f });
    CHECK (r.whole.IsDirty ());
    CHECK (r.Text () == "8 whole");

    r.control.SetFrame ({ 20, 4, 40, 14 }); // too small for a field
    r.DoubleClick ({ 121, 55 });
    CHECK (r.control.GetDrawRect () == ZRect{ 16, 2, 44, 16 });
    r.Click ({ 117, 65 }); // beside the control, in the field
    CHECK (r.IsOpen ());
    r.Stroke (kKeyEscape);
    CHECK (r.control.GetHitRect () == ZRect{ 20, 4, 40, 14 });
}

TEST_CASE ("ZTextEdit: what is typed is read by the analyzer that it is given, without one as a number with a suffix")
{
    Readout r;
    r.control.SetConverters ({ [] (float, char* text) { PutText (text, ""); },
                               [] (float value, float, float) { return value * 128.0f; },
                               [] (float plain, float, float) { return plain / 128.0f; } });
    const auto typed = [&r] (std::unique_ptr<ZTextAnalyzer> analyzer, const char* text)
    {
        r.control.SetTextAnalyzer (std::move (analyzer));
        r.Open ();
        r.Type (text);
        r.Stroke (kKeyReturn);
        return r.TakeValues ();
    };
    CHECK (typed (std::make_unique<ZK2XTextAnalyzer> (7), "2.0K") == Values{ 84 / 128.0f }); // the step of 2 kHz
    CHECK (typed (std::make_unique<ZRatioTextAnalyzer> (3), "i N f") == Values{ 120 / 128.0f });
    CHECK (typed (nullptr, "0.032k") == Values{ 32 / 128.0f });
    for (const char* unreadable : { "x", "inf", "nan", "1e999" })
        CHECK (typed (nullptr, unreadable).empty ());
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

    for (const std::int32_t flags : { 0, +kDragUpAndDown, +kEditOnDoubleClick })
    {
        CAPTURE (flags);
        r.control.SetFlags (flags);
        r.Click (kElsewhere);
        r.Down (kMiddle);
        CHECK ((r.capture != nullptr) == (flags == kDragUpAndDown));
        r.Up (kMiddle);
        r.Open ();
        CHECK (r.IsOpen () == (flags == kEditOnDoubleClick));
        r.Stroke (kKeyEscape);
    }
    CHECK (r.TakeValues ().empty ());

    ZDrawTextEdit alone (nullptr, { 5, 5, 60, 20 }, 3); // no owner, no fields, and no way to say the value
    CHECK (r.Press (alone, { 1, 1 }));
    CHECK_FALSE (r.Press (alone, { 1, 1 }));
}

TEST_CASE ("ZCanvasTextEditImp: keys edit and copy, characters arrive byte by byte, and no key passes by")
{
    struct Row
    {
        std::vector<ZKeyInput> strokes; // on "2.50", all selected
        std::string result;
        std::string clipboard = "7\n8";
    };
    const ZKeyInput home{ 0, 0, kKeyHome };
    const ZKeyInput end{ 0, 0, kKeyEnd };
    const std::vector<Row> rows{
        { { home, { 0, kShift, kKeyRight }, { '4' } }, "4.50" },
        { { home, { 0, kControl, kKeyRight }, { 'k' } }, "2.50k" },
        { { end, { 8, kControl, kKeyBack } }, "" },
        { { { 'c', kControl }, end, { 'v', kControl } }, "2.502.50", "2.50" },
        { { { 3, kControl, kKeyEnter }, end }, "2.50", "2.50" }, // C as the code of the key
        { { { 0, kControl, kKeyInsert }, home, { 0, kShift, kKeyInsert } }, "2.502.50", "2.50" },
        { { { 127, kShift, kKeyDelete }, { 24, kControl } }, "", "2.50" }, // X as a control character
        { { end, { 1, kControl }, { '4' } }, "4" },                        // likewise A
        { { home, { 'v', kCommand } }, "782.50" },                         // the line break is left out
        { { end, { 'a', kControl }, { ' ', 0, kKeySpace }, { '3', 0, kKeyNumPad0 + 3 } }, " 3" },
        { { { '@', kControl | kAlt } }, "@" }, // a third level of the keyboard
        { { { 'q', kControl }, { 'f', kAlt }, { 9, 0, kKeyTab }, { 0, 0, kKeyUp }, { 0, 0, kKeyF1 } }, "2.50" },
        { { end, { '\xE2' }, { '\x82' }, { '\xAC' } }, "2.50\u20ac" },
        { { end, { '\xE2' }, { '\x82' }, { 'x' } }, "2.50x" },
        { { end, { '\xE2' }, { 0, 0, kKeyLeft }, { '\x82' }, { '\xAC' } }, "2.50" },
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
        CHECK (r.Text () == row.result);
    }
}

TEST_CASE ("ZCanvasTextEditImp: the mouse sets the caret, selects by dragging, with shift and by words")
{
    // Characters are 6 pixels wide, the text begins a pixel inside of the field at 100.
    Readout r;
    const auto at = [] (std::int32_t x) { return ZPoint{ 101 + x, 60 }; };
    struct Row
    {
        std::int32_t from, to, modifiers;
        bool twice;
        std::string result; // of an "x" typed in place of what is selected
    };
    for (const auto& row : { Row{ 14, 14, kControl, false, "12x 345 6" }, // no reset
                             Row{ 15, 15, 0, false, "12 x345 6" }, Row{ 35, 35, 0, true, "12 x 6" },
                             Row{ 24, 24, kShift, false, "1x45 6" }, // from the first click
                             Row{ 36, -54, 0, false, "x 6" } })
    {
        CAPTURE (row.result);
        r.Open ();
        r.Type ("12 345 6");
        r.Click (at (row.twice ? row.from : 6));
        r.Down (at (row.from), row.modifiers);
        r.Move (at (row.to));
        r.Up (at (row.to));
        r.Type ("x");
        CHECK (r.Text () == row.result);
        r.Stroke (kKeyEscape);
    }

    // A key that closes the field in mid-drag doesn't leave a drag of the value behind.
    r.Open ();
    r.Down (at (6));
    r.Stroke (kKeyEscape);
    r.Move ({ 130, 20 });
    CHECK (r.capture == nullptr);
    CHECK (r.TakeValues ().empty ());

    r.Click (kMiddle); // opening selects all, and the hand's tremble until the release changes nothing
    r.Down (kMiddle);
    r.Move (kMiddle + ZPoint{ 1, 1 });
    r.Up (kMiddle);
    r.Type ("1");
    CHECK (r.Text () == "1");
}

TEST_CASE ("ZCanvasTextEditImp: a long text scrolls with the caret, also under a pointer that rests outside")
{
    // 59 pixels inside of the field, one of them for the caret: of 20 characters the last 9 fit.
    Readout r;
    r.Open ();
    r.Type ("abcdefghijklmnopqrst");
    const auto textLeft = [&r] { return r.TextCall ().rect.left; };
    CHECK (textLeft () == 39);
    r.Stroke (kKeyHome);
    CHECK (textLeft () == 101);
    r.Down ({ 150, 60 });
    r.Move ({ 170, 60 });
    CHECK (textLeft () == 87);
    for (int i = 0; i < 10; ++i)
        r.whole.Idle (r.event, r.At ({ 170, 60 }));
    CHECK (textLeft () == 39);
}

TEST_CASE ("ZCanvasTextEditImp: the caret blinks by the clock, paints only when it changes, and stays on while typing")
{
    Readout r;
    r.window.time = 0xFFFFFFF0u - 1000; // wraps on the way
    r.Open ();
    CHECK_FALSE (r.TickDirties (10));
    CHECK_FALSE (r.TickDirties (499));
    const auto on = r.Drawn (r.control).size ();
    CHECK (r.TickDirties (1));
    CHECK (r.Drawn (r.control).size () < on);
    r.Stroke (kKeyEnd);
    CHECK (r.control.IsDirty ());
    CHECK_FALSE (r.TickDirties (300));
    CHECK_FALSE (r.TickDirties (499));
}
