#include "edit_line.h"

#include "text_buffer.h"
#include "utf8.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr std::size_t kMostBytes = kTextSize - 1;

/// The well-formed character at the beginning of a text; empty without one.
std::string_view FirstCharacter (std::string_view text)
{
    for (std::size_t length = 1; length <= std::min<std::size_t> (text.size (), 4); ++length)
        if (IsUtf8 (text.substr (0, length)))
            return text.substr (0, length);
    return {};
}

bool IsControl (std::string_view character)
{
    const auto lead = static_cast<unsigned char> (character[0]);
    const auto last = static_cast<unsigned char> (character.back ());
    return lead < 0x20 || lead == 0x7F || (lead == 0xC2 && last < 0xA0); // C0, delete, C1
}

std::string Cleaned (std::string_view raw)
{
    std::string clean;
    while (!raw.empty ())
    {
        const auto character = FirstCharacter (raw);
        if (!character.empty () && !IsControl (character))
            clean += character;
        raw.remove_prefix (std::max<std::size_t> (character.size (), 1));
    }
    return clean;
}

enum class Kind
{
    kBlank,
    kWord,
    kSign
};

/// Of a byte; those beyond ASCII are letters. Point and comma belong to the numbers that they stand in.
Kind KindOf (char byte)
{
    const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
    if (letter || byte == '.' || byte == ',' || byte == '_' || (static_cast<unsigned char> (byte) & 0x80) != 0)
        return Kind::kWord;
    return byte == ' ' ? Kind::kBlank : Kind::kSign;
}

} // namespace

void ZEditLine::SetText (std::string_view newText)
{
    text = CutAtCharacter (Cleaned (newText), kMostBytes);
    caret = anchor = text.size ();
}

std::size_t ZEditLine::GetSelectionStart () const
{
    return std::min (caret, anchor);
}

std::size_t ZEditLine::GetSelectionEnd () const
{
    return std::max (caret, anchor);
}

std::string ZEditLine::GetSelectedText () const
{
    return text.substr (GetSelectionStart (), GetSelectionEnd () - GetSelectionStart ());
}

void ZEditLine::SelectAll ()
{
    anchor = 0;
    caret = text.size ();
}

void ZEditLine::SelectWordAt (std::size_t position)
{
    if (text.empty ())
        return;
    const auto inside = std::min (position, text.size () - 1); // after the end: the last word
    caret = RunEnd (inside);
    anchor = RunStart (caret);
}

void ZEditLine::MoveTo (std::size_t position, bool extend)
{
    caret = std::min (position, text.size ());
    while (caret > 0 && caret < text.size () && ContinuesCharacter (text[caret]))
        --caret;
    if (!extend)
        anchor = caret;
}

void ZEditLine::MoveLeft (Reach reach, bool extend)
{
    const bool collapses = HasSelection () && !extend && reach == Reach::kCharacter;
    MoveTo (collapses ? GetSelectionStart () : LeftOf (caret, reach), extend);
}

void ZEditLine::MoveRight (Reach reach, bool extend)
{
    const bool collapses = HasSelection () && !extend && reach == Reach::kCharacter;
    MoveTo (collapses ? GetSelectionEnd () : RightOf (caret, reach), extend);
}

void ZEditLine::Insert (std::string_view added)
{
    const auto clean = Cleaned (added);
    if (clean.empty ())
        return;
    DeleteSelection ();
    const auto fitting = CutAtCharacter (clean, kMostBytes - text.size ());
    text.insert (caret, fitting);
    MoveTo (caret + fitting.size (), false);
}

void ZEditLine::DeleteLeft (Reach reach)
{
    if (!HasSelection ())
        MoveLeft (reach, true);
    DeleteSelection ();
}

void ZEditLine::DeleteRight (Reach reach)
{
    if (!HasSelection ())
        MoveRight (reach, true);
    DeleteSelection ();
}

std::size_t ZEditLine::Next (std::size_t position) const
{
    if (position < text.size ())
        ++position;
    while (position < text.size () && ContinuesCharacter (text[position]))
        ++position;
    return position;
}

std::size_t ZEditLine::LeftOf (std::size_t position, Reach reach) const
{
    if (reach == Reach::kLine)
        return 0;
    if (reach == Reach::kCharacter)
        return position > 0 ? position - 1 : 0; // MoveTo goes on to where the character begins
    if (position > 0 && KindOf (text[position - 1]) == Kind::kBlank)
        position = RunStart (position);
    return RunStart (position);
}

std::size_t ZEditLine::RightOf (std::size_t position, Reach reach) const
{
    if (reach == Reach::kLine)
        return text.size ();
    if (reach == Reach::kCharacter)
        return Next (position);
    position = RunEnd (position);
    return position < text.size () && KindOf (text[position]) == Kind::kBlank ? RunEnd (position) : position;
}

std::size_t ZEditLine::RunStart (std::size_t position) const
{
    const auto end = position;
    while (position > 0 && KindOf (text[position - 1]) == KindOf (text[end - 1]))
        --position;
    return position;
}

std::size_t ZEditLine::RunEnd (std::size_t position) const
{
    const auto start = position;
    while (position < text.size () && KindOf (text[position]) == KindOf (text[start]))
        ++position;
    return position;
}

void ZEditLine::DeleteSelection ()
{
    const auto start = GetSelectionStart ();
    text.erase (start, GetSelectionEnd () - start);
    caret = anchor = start;
}

} // namespace tessaly
