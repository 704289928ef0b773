#pragma once

#include "look_columns.h"
#include "text_edits.h"
#include <cstdint>

namespace tessaly
{

/// The read-out of a parameter's value. It tells the editor when its user begins, goes on and stops to touch it, by
/// mouse, wheel, key or an open field: kTouchStarted, kTouchGoesOn, kTouchEnded. Without kEditOnDoubleClick it is the
/// copy that stands above an open ring, and draws digits without a background. The columns are those of its font.
class ZAMX_FontTextEdit final : public ZFontTextEdit
{
public:
    using ZFontTextEdit::ZFontTextEdit;

    void ShowDigits ();
    void HideDigits () { showDigits = false; } ///< from the next painting on; has none done
    void SetColumns (std::int32_t normal, std::int32_t bright) { columns = { normal, bright }; }
    std::uint32_t GetLastTouch () const { return lastTouch; } ///< milliseconds
    void SetLastTouch (std::uint32_t time) { lastTouch = time; }
    void ClearEditing () { editing = false; } ///< without a message
    void SetBright (bool on, bool redraw);    ///< redraw: the pane is to be painted again
    bool IsFieldOpen () const { return IsOverlayOpen (); }

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    // Wheel and keys do nothing while the mouse is disabled, the wheel also while the field is open
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyUp (ZEvent& event, const ZKeyInput& key) override;
    bool OnOpenModal (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnCloseModal (bool commit) override;
    void OnMouseExit (ZEvent& event, const ZMouseInput& mouse) override;

private:
    bool OpensField () const { return (GetFlags () & kEditOnDoubleClick) != 0; }
    void Touch (std::uint32_t time);
    void EndTouch (std::uint32_t time);

    LookColumns columns;
    bool editing = false;        // the user is touching the value
    std::uint32_t lastTouch = 0; // milliseconds
    bool showDigits = true;
};

} // namespace tessaly
