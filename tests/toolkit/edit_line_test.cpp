#include "edit_line.h"
#include <doctest/doctest.h>
#include <functional>
#include <string>
#include <vector>

using namespace tessaly;

namespace
{

using Reach = ZEditLine::Reach;

/// A line in one word: '|' stands at the caret, '[' and ']' around the selection.
std::string Marked (const ZEditLine& line)
{
    auto text = line.GetText ();
    if (!line.HasSelection ())
        return text.insert (line.GetCaret (), "|");
    const bool atStart = line.GetCaret () == line.GetSelectionStart ();
    text.insert (line.GetSelectionEnd (), atStart ? "]" : "|]");
    return text.insert (line.GetSelectionStart (), atStart ? "[|" : "[");
}

} // namespace

TEST_CASE ("ZEditLine: moving, selecting and editing go by characters and words")
{
    struct Row
    {
        std::string text;
        std::size_t caret;
        std::function<void (ZEditLine&)> act;
        std::string result;
    };
    const auto left = [] (Reach reach, bool extend) { return [=] (ZEditLine& l) { l.MoveLeft (reach, extend); }; };
    const auto right = [] (Reach reach, bool extend) { return [=] (ZEditLine& l) { l.MoveRight (reach, extend); }; };
    const auto all = [] (auto then)
    {
        return [=] (ZEditLine& l)
        {
            l.SelectAll ();
            then (l);
        };
    };
    const auto back = [] (Reach reach) { return [=] (ZEditLine& l) { l.DeleteLeft (reach); }; };
    const auto ahead = [] (Reach reach) { return [=] (ZEditLine& l) { l.DeleteRight (reach); }; };
    const auto insert = [] (const char* text) { return [=] (ZEditLine& l) { l.Insert (text); }; };
    const auto word = [] (std::size_t at) { return [=] (ZEditLine& l) { l.SelectWordAt (at); }; };

    const std::vector<Row> rows{
        { "abc", 0, left (Reach::kCharacter, false), "|abc" },
        { "abc", 1, right (Reach::kLine, true), "a[bc|]" },
        { "a\u00e4\u20acb", 1, right (Reach::kCharacter, true), "a[\u00e4|]\u20acb" },
        { "a\u00e4\u20acb", 6, back (Reach::kCharacter), "a\u00e4|b" },
        { "a\u00e4\u20acb", 1, ahead (Reach::kCharacter), "a|\u20acb" },
        { "abc", 0, all (left (Reach::kCharacter, false)), "|abc" }, // a selection ends at the side moved to
        { "abc", 0, all (right (Reach::kCharacter, false)), "abc|" },
        { "-12.5 dB (x)", 8, left (Reach::kWord, false), "-12.5 |dB (x)" },
        { "-12.5 dB (x)", 6, left (Reach::kWord, false), "-|12.5 dB (x)" },
        { "-12.5 dB (x)", 1, right (Reach::kWord, true), "-[12.5 |]dB (x)" },
        { "one two", 7, back (Reach::kWord), "one |" },
        { "one two", 0, ahead (Reach::kWord), "|two" },
        { "", 0, back (Reach::kCharacter), "|" },
        { "one two", 5, word (5), "one [two|]" },
        { "one two", 0, word (3), "one[ |]two" },
        { "one two", 0, word (99), "one [two|]" },
        { "abc", 0, all (insert ("\n\t")), "[abc|]" },                                 // nothing left: nothing happens
        { "ab", 1, insert ("\x1B[\x7F 1\xC2\x85\xFF\xC3(2\xED\xA0\x80"), "a[ 1(2|b" }, // control, C1, broken, surrogate
    };
    for (const auto& row : rows)
    {
        CAPTURE (row.result);
        ZEditLine line;
        line.SetText (row.text);
        line.MoveTo (row.caret, false);
        row.act (line);
        CHECK (Marked (line) == row.result);
    }
}

TEST_CASE ("ZEditLine: 255 bytes at most, in whole characters, wherever they come from")
{
    ZEditLine line;
    line.SetText (std::string (254, 'a') + "\u00e4");
    CHECK (line.GetText () == std::string (254, 'a'));
    line.MoveTo (1, false);
    line.Insert ("\u00e4");
    CHECK (line.GetText ().size () == 254);
    line.Insert ("bc");
    CHECK (line.GetText () == "ab" + std::string (253, 'a'));
    CHECK (line.GetCaret () == 2);
    line.SelectAll ();
    line.Insert (std::string (300, 'z')); // the room of what it replaces counts
    CHECK (line.GetText () == std::string (255, 'z'));
}
