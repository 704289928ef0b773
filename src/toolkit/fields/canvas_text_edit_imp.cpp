#include "canvas_text_edit_imp.h"

#include "ascii_case.h"
#include "canvas.h"
#include "clipboard.h"
#include "text_edit.h"
#include "utf8.h"
#include <algorithm>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::int32_t kLeastWidth = 28; // pixels
constexpr std::int32_t kLeastHeight = 14;
constexpr std::int32_t kMargin = 1; // pixels above, below and left of the text; a caret ends it at the right
constexpr std::uint32_t kBlinkMilliseconds = 500; // half a period

/// At least as large as a field must be, around the same centre.
ZRect Enlarged (ZRect rect)
{
    if (rect.Height () < kLeastHeight)
    {
        rect.top -= (kLeastHeight - rect.Height ()) / 2;
        rect.bottom = rect.top + kLeastHeight;
    }
    if (rect.Width () < kLeastWidth)
    {
        rect.left -= (kLeastWidth - rect.Width ()) / 2;
        rect.right = rect.left + kLeastWidth;
    }
    return rect;
}

bool HasCommand (const ZKeyInput& key) ///< control or command, but not control and alt, which is how AltGr arrives
{
    const auto held = key.modifiers & (kControl | kAlt | kCommand);
    return held == kControl || (held & kCommand) != 0;
}

/// The letter of a shortcut in lower case; it may arrive as a control character, too.
char ShortcutLetter (char character)
{
    if (character >= 1 && character <= 26)
        return static_cast<char> ('a' + character - 1);
    return AsciiLower (character);
}

/// Whether what a key carries is text: plain keys, space, and the numeric pad.
bool IsTyping (const ZKeyInput& key)
{
    const bool hasText = key.key == kKeyNone || key.key == kKeySpace || (key.key >= kKeyNumPad0 && key.key < kKeyF1);
    const auto held = key.modifiers & (kControl | kAlt | kCommand);
    return hasText && key.character != 0 && (held == 0 || held == (kControl | kAlt));
}

} // namespace

ZCanvasTextEditImp::ZCanvasTextEditImp (ZCanvas& measuringCanvas, ZClipboard* windowClipboard, ZOverlayStyle fieldStyle)
    : measure (measuringCanvas)
    , clipboard (windowClipboard)
    , style (std::move (fieldStyle))
{
}

void ZCanvasTextEditImp::SetText (std::string_view newText)
{
    line.SetText (newText);
    text = line.GetText ();
}

bool ZCanvasTextEditImp::Open (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    if (IsOpen () || control == nullptr)
        return false;
    rect = Enlarged (control->GetHitRect () + control->GetOrigin ());
    line.SetText (text);
    line.SelectAll ();
    arriving.clear ();
    scrolled = 0;
    selecting = false;
    ShowCaret ();
    return true;
}

bool ZCanvasTextEditImp::Close (bool commit)
{
    if (IsOpen () && commit)
        text = line.GetText ();
    rect = {};
    return false;
}

// Drawing

ZRect ZCanvasTextEditImp::Inside () const
{
    auto inside = rect - control->GetOrigin ();
    inside.left += kMargin;
    inside.top += kMargin;
    inside.bottom -= kMargin;
    return inside;
}

void ZCanvasTextEditImp::UseFont (ZCanvas& canvas) const
{
    // The line of text fills the field; a font's line is up to 1.2 times its size.
    canvas.SetFont (style.fontName, (rect.Height () - 2) * 5 / 6, style.fontStyle);
}

std::int32_t ZCanvasTextEditImp::WidthTo (std::size_t position) const
{
    UseFont (measure);
    return position == 0 ? 0 : measure.GetTextWidth (std::string_view (line.GetText ()).substr (0, position));
}

void ZCanvasTextEditImp::ShowCaret ()
{
    const auto room = Inside ().Width () - 1; // the caret after the last character needs a pixel
    const auto caret = WidthTo (line.GetCaret ());
    const auto furthest = std::max (WidthTo (line.GetText ().size ()) - room, 0);
    scrolled = std::min ({ scrolled, caret, furthest });
    scrolled = std::max (scrolled, caret - room);
    caretOn = true;
    blinkAnew = true;
    control->SetDirty (true);
}

void ZCanvasTextEditImp::DrawLine (ZCanvas& canvas, const ZRect& clip, ZColor color) const
{
    if (clip.IsEmpty ())
        return;
    const ZCanvasStateSt state (canvas);
    canvas.SetClipRect (clip);
    canvas.SetColor (color, 255);
    auto place = Inside ();
    place.left -= scrolled;
    place.right = place.left + WidthTo (line.GetText ().size ()) + 1;
    canvas.DrawText (line.GetText (), place, kAlignLeft | kAlignMiddle);
}

void ZCanvasTextEditImp::DrawField (ZCanvas& canvas, ZColor textColor) const
{
    const auto frame = rect - control->GetOrigin ();
    canvas.SetColor (style.background, 255);
    canvas.FillRect (frame);
    UseFont (canvas);
    DrawLine (canvas, Inside (), textColor);
}

void ZCanvasTextEditImp::DrawLight (ZCanvas& canvas) const
{
    const auto frame = rect - control->GetOrigin ();
    canvas.SetColor (style.caret, 255);
    canvas.FillRect ({ frame.left, frame.bottom - 1, frame.right, frame.bottom });
}

void ZCanvasTextEditImp::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawField (canvas, style.text);
    DrawLight (canvas);
    const auto inside = Inside ();
    const auto xOf = [&] (std::size_t position) { return inside.left - scrolled + WidthTo (position); };
    if (line.HasSelection ())
    {
        const ZRect selected{ std::max (xOf (line.GetSelectionStart ()), inside.left), inside.top,
                              std::min (xOf (line.GetSelectionEnd ()), inside.right), inside.bottom };
        canvas.SetColor (style.highlight, 255);
        canvas.FillRect (selected);
        DrawLine (canvas, selected, style.highlightText);
    }
    if (caretOn)
    {
        const auto x = xOf (line.GetCaret ());
        canvas.SetColor (style.caret, 255);
        canvas.FillRect ({ x, inside.top, x + 1, inside.bottom });
    }
}

void ZCanvasTextEditImp::DrawInactive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    DrawField (canvas, style.disabledText);
}

void ZCanvasTextEditImp::OnIdle (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (!IsOpen ())
        return;
    if (selecting && mouse.LeftDown ()) // a pointer that rests outside goes on scrolling
        SelectTo (mouse.point.x);
    if (std::exchange (blinkAnew, false))
        blinkStart = mouse.time;
    const bool on = (mouse.time - blinkStart) / kBlinkMilliseconds % 2 == 0;
    if (on == caretOn)
        return;
    caretOn = on;
    control->SetDirty (true);
}

// Mouse

std::size_t ZCanvasTextEditImp::PositionAt (std::int32_t x, Aim aim) const
{
    const auto wanted = x - Inside ().left + scrolled;
    std::size_t position = 0;
    for (std::int32_t left = 0; position < line.GetText ().size ();)
    {
        const auto next = line.Next (position);
        const auto right = WidthTo (next);
        if (wanted < (aim == Aim::kCharacter ? right : left + (right - left + 1) / 2))
            break;
        position = next;
        left = right;
    }
    return position;
}

bool ZCanvasTextEditImp::OnMouseDown (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (!IsOpen () || !mouse.LeftDown ())
        return false;
    arriving.clear ();
    selecting = !mouse.IsDoubleClick (); // the hand's tremble must not undo the choice of a word
    if (mouse.IsDoubleClick ())
        line.SelectWordAt (PositionAt (mouse.point.x, Aim::kCharacter));
    else
        line.MoveTo (PositionAt (mouse.point.x, Aim::kNearest), (mouse.modifiers & kShift) != 0);
    ShowCaret ();
    return true;
}

bool ZCanvasTextEditImp::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (IsOpen () && selecting)
        SelectTo (mouse.point.x);
    return IsOpen ();
}

void ZCanvasTextEditImp::SelectTo (std::int32_t x)
{
    const auto before = line.GetCaret ();
    line.MoveTo (PositionAt (x, Aim::kNearest), true);
    if (line.GetCaret () != before)
        ShowCaret ();
}

bool ZCanvasTextEditImp::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    selecting = false;
    return false;
}

// Keys

bool ZCanvasTextEditImp::OnKeyDown (ZEvent& /*event*/, const ZKeyInput& key)
{
    if (!IsOpen ())
        return false;
    if (EditByShortcut (key))
    {
        arriving.clear ();
        ShowCaret ();
        return true;
    }
    if (key.key == kKeyReturn || key.key == kKeyEnter || key.key == kKeyEscape)
    {
        control->CloseModal (key.key != kKeyEscape);
        return true;
    }
    if (EditByKey (key))
        arriving.clear ();
    else if (IsTyping (key))
        Type (key.character);
    else
        return true;
    ShowCaret ();
    return true;
}

bool ZCanvasTextEditImp::EditByKey (const ZKeyInput& key)
{
    const bool shift = (key.modifiers & kShift) != 0;
    const bool command = HasCommand (key);
    const auto reach = command ? ZEditLine::Reach::kWord : ZEditLine::Reach::kCharacter;
    switch (key.key)
    {
    case kKeyLeft:
        line.MoveLeft (reach, shift);
        return true;
    case kKeyRight:
        line.MoveRight (reach, shift);
        return true;
    case kKeyHome:
        line.MoveLeft (ZEditLine::Reach::kLine, shift);
        return true;
    case kKeyEnd:
        line.MoveRight (ZEditLine::Reach::kLine, shift);
        return true;
    case kKeyBack:
        line.DeleteLeft (reach);
        return true;
    case kKeyDelete:
        if (shift)
            Cut ();
        else
            line.DeleteRight (reach);
        return true;
    case kKeyInsert:
        if (shift)
            Paste ();
        else if (command)
            Copy ();
        return true;
    default:
        return false;
    }
}

bool ZCanvasTextEditImp::EditByShortcut (const ZKeyInput& key)
{
    if (!HasCommand (key) || (key.key != kKeyNone && key.key != kKeyEnter)) // C may arrive as the code 3 of enter
        return false;
    switch (ShortcutLetter (key.character))
    {
    case 'a':
        line.SelectAll ();
        return true;
    case 'c':
        Copy ();
        return true;
    case 'x':
        Cut ();
        return true;
    case 'v':
        Paste ();
        return true;
    default:
        return false;
    }
}

void ZCanvasTextEditImp::Type (char byte)
{
    constexpr std::size_t kLongestCharacter = 4; // bytes of UTF-8
    if (!ContinuesCharacter (byte))
        arriving.clear ();
    arriving += byte;
    if (IsUtf8 (arriving))
        line.Insert (std::exchange (arriving, {}));
    else if (arriving.size () >= kLongestCharacter)
        arriving.clear ();
}

void ZCanvasTextEditImp::Copy ()
{
    if (clipboard != nullptr && line.HasSelection ())
        clipboard->SetText (line.GetSelectedText ());
}

void ZCanvasTextEditImp::Cut ()
{
    if (clipboard == nullptr || !line.HasSelection ())
        return;
    Copy ();
    line.DeleteLeft (ZEditLine::Reach::kCharacter);
}

void ZCanvasTextEditImp::Paste ()
{
    if (clipboard != nullptr)
        line.Insert (clipboard->GetText ());
}

} // namespace tessaly
