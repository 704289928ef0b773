#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessaly
{

/// A line of text being edited: UTF-8 of at most 255 bytes, a caret, and a selection that runs from an anchor to the
/// caret. Positions are in bytes and always between characters; a character is a code point. What comes in from outside
/// is cleaned: control characters and bytes that are no UTF-8 are left out, and what doesn't fit is cut at a character.
class ZEditLine
{
public:
    enum class Reach
    {
        kCharacter,
        kWord, // with the blanks after it; a run of other signs counts as a word
        kLine
    };

    void SetText (std::string_view newText); ///< caret at the end, nothing selected
    const std::string& GetText () const { return text; }
    std::size_t GetCaret () const { return caret; }

    bool HasSelection () const { return caret != anchor; }
    std::size_t GetSelectionStart () const;
    std::size_t GetSelectionEnd () const;
    std::string GetSelectedText () const;
    void SelectAll ();                        ///< caret at the end
    void SelectWordAt (std::size_t position); ///< a position inside of a character counts as one before it

    // Moving the caret; extending keeps the anchor, else a selection ends at the side that is moved to
    void MoveTo (std::size_t position, bool extend);
    void MoveLeft (Reach reach, bool extend);
    void MoveRight (Reach reach, bool extend);

    // Editing; what is selected goes first, whatever the reach
    void Insert (std::string_view added); ///< nothing happens if nothing is left of it
    void DeleteLeft (Reach reach);
    void DeleteRight (Reach reach);

    std::size_t Next (std::size_t position) const; ///< the end of the character there; the end of the text stays

private:
    std::size_t LeftOf (std::size_t position, Reach reach) const;
    std::size_t RightOf (std::size_t position, Reach reach) const;
    std::size_t RunStart (std::size_t position) const; // of the signs of one kind that end at the position
    std::size_t RunEnd (std::size_t position) const;   // of those that begin there
    void DeleteSelection ();

    std::string text;
    std::size_t caret = 0;
    std::size_t anchor = 0;
};

} // namespace tessaly
