#pragma once

#include "edit_line.h"
#include "overlay_style.h"
#include "text_edit_imp.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly
{

class ZClipboard;

/// A text field that is drawn on the canvas, over the hit rectangle of its control and at least 28 by 14 pixels large.
///
/// Keys: the arrows, home and end move the caret, with shift they select, with control the arrows go by words; back and
/// delete remove a character or, with control, a word; control (or command) with A, C, X, V and insert or delete with
/// control or shift are select all, copy, cut and paste; return and enter commit, escape doesn't. Everything else that
/// carries a character types it, one byte a call: those of a character beyond ASCII arrive one after the other, and one
/// that is broken off is dropped. While it is open the field takes every key, known to it or not, as an edit box does.
/// Mouse: a press sets the caret, dragging and shift select, a double click selects a word.
/// Host's user-interface thread.
class ZCanvasTextEditImp final : public ZTextEditImp
{
public:
    /// @param measuringCanvas  borrowed: of the kind that is painted on; outlives this
    /// @param windowClipboard  borrowed, or null: no copying, no pasting
    ZCanvasTextEditImp (ZCanvas& measuringCanvas, ZClipboard* windowClipboard, ZOverlayStyle fieldStyle = {});

    void SetText (std::string_view newText) override;
    std::string GetText () const override { return text; }
    bool Open (ZEvent& event, const ZMouseInput& mouse) override;
    bool Close (bool commit) override;
    bool IsOpen () const override { return !rect.IsZero (); }
    ZRect GetOpenRect () const override { return rect; }

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override; ///< without caret and selection
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override { return OnKeyDown (event, key); }
    bool OnKeyUp (ZEvent& /*event*/, const ZKeyInput& /*key*/) override { return true; }
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override; ///< blinks; scrolls while selecting

private:
    enum class Aim
    {
        kNearest,  // the end of a character that is nearest
        kCharacter // the beginning of the character that is there
    };

    bool EditByKey (const ZKeyInput& key);      // true if the key is one of those that move or delete
    bool EditByShortcut (const ZKeyInput& key); // or a shortcut
    void Type (char byte);
    void Copy ();
    void Cut ();
    void Paste ();

    ZRect Inside () const; // where the text shows, in the coordinates of the control's handlers
    void UseFont (ZCanvas& canvas) const;
    std::int32_t WidthTo (std::size_t position) const;      // of the text before a position, pixels
    std::size_t PositionAt (std::int32_t x, Aim aim) const; // x: in handler coordinates
    void SelectTo (std::int32_t x);
    void ShowCaret (); // scrolls it into sight and begins its blinking anew
    void DrawField (ZCanvas& canvas, ZColor textColor) const;
    void DrawLight (ZCanvas& canvas) const; // below the text: the keys are the field's
    void DrawLine (ZCanvas& canvas, const ZRect& clip, ZColor color) const;

    ZCanvas& measure;      // not owned: the window's
    ZClipboard* clipboard; // not owned: the window's; null for none
    ZOverlayStyle style;
    std::string text;             // what was set or committed
    ZEditLine line;               // what is being typed
    ZRect rect;                   // in root coordinates; zero while closed
    std::string arriving;         // the first bytes of a character that is not complete
    std::int32_t scrolled = 0;    // pixels of the line left of the field
    bool selecting = false;       // by a drag of the mouse
    bool caretOn = false;         // within its blinking
    bool blinkAnew = false;       // the next idle call is the beginning of a blink
    std::uint32_t blinkStart = 0; // milliseconds
};

} // namespace tessaly
