#include "edit_line.h"
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

using Line = ZEditLine;
using enum ZEditLine::Reach;

/// A line in one word: '|' stands at the caret, '[' and ']' around the selection if there is one.
std::string Marked (const Line& line)
{
    auto text = line.GetText ();
    if (!line.HasSelection ())
        return text.insert (line.GetCaret (), "|");
    text.insert (line.GetSelectionEnd (), "]");
    return text.insert (line.GetSelectionStart (), "[");
}

} // namespace

TEST_CASE ("ZEditLine: moving, selecting and editing go by characters and words")
{
    struct Row
    {
        std::string text;
        std::size_t caret;
        void (*act) (Line& line);
        std::string result;
    };
    const Row rows[]{
        { "abc", 2, [] (Line& l) { l.MoveLeft (kCharacter, false); }, "a|bc" },
        { "a\u00e4\u20acb", 1, [] (Line& l) { l.MoveRight (kCharacter, true); }, "a[\u00e4]\u20acb" },
        { "a\u00e4\u20acb", 6, [] (Line& l) { l.DeleteLeft (kCharacter); }, "a\u00e4|b" },
        { "a\u00e4\u20acb", 1, [] (Line& l) { l.DeleteRight (kCharacter); }, "a|\u20acb" },
        { "-12.5 dB (x)", 8, [] (Line& l) { l.MoveLeft (kWord, false); }, "-12.5 |dB (x)" },
        { "-12.5 dB (x)", 6, [] (Line& l) { l.MoveLeft (kWord, false); }, "-|12.5 dB (x)" },
        { "-12.5 dB (x)", 1, [] (Line& l) { l.MoveRight (kWord, true); }, "-[12.5 ]dB (x)" },
        { "one two", 7, [] (Line& l) { l.DeleteLeft (kWord); }, "one |" },
        { "", 0, [] (Line& l) { l.DeleteLeft (kCharacter); }, "|" },
        { "one two", 5, [] (Line& l) { l.SelectWordAt (5); }, "one [two]" },
        { "one two", 0, [] (Line& l) { l.SelectWordAt (3); }, "one[ ]two" },
        { "one two", 0, [] (Line& l) { l.SelectWordAt (99); }, "one [two]" },
        { "one two", 4, [] (Line& l) { l.SelectWordAt (5), l.MoveLeft (kCharacter, false); },
          "one |two" }, // ends there
        { "one two", 4, [] (Line& l) { l.SelectWordAt (0), l.MoveRight (kCharacter, false); }, "one| two" },
        { "one two", 4, [] (Line& l) { l.SelectWordAt (5), l.Insert ("\n\t"); }, "one [two]" }, // nothing is left of it
        // Escape, delete, C1, no UTF-8, a lone lead and a surrogate
        { "ab", 1, [] (Line& l) { l.Insert ("\x1B[\x7F 1\xC2\x85\xFF\xC3(2\xED\xA0\x80"); }, "a[ 1(2|b" },
    };
    for (const auto& row : rows)
    {
        CAPTURE (row.result);
        Line line;
        line.SetText (row.text);
        line.MoveTo (row.caret, false);
        row.act (line);
        CHECK (Marked (line) == row.result);
    }
}

TEST_CASE ("ZEditLine: 255 bytes at most, in whole characters, wherever they come from")
{
    Line line;
    line.SetText (std::string (254, 'a') + "\u00e4");
    line.Insert ("\u00e4");
    CHECK (line.GetText () == std::string (254, 'a'));
    line.MoveTo (1, false);
    line.Insert ("bc");
    CHECK (line.GetText () == "ab" + std::string (253, 'a'));
    line.SelectAll ();
    line.Insert (std::string (300, 'z')); // the room of what it replaces counts
    CHECK (line.GetText () == std::string (255, 'z'));
}
