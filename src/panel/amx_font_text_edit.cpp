#include "amx_font_text_edit.h"

#include "panel_ids.h"
#include "step_keys.h"

namespace tessaly
{

void ZAMX_FontTextEdit::ShowDigits ()
{
    showDigits = true;
    SetDirty (true);
}

void ZAMX_FontTextEdit::SetBright (bool on, bool redraw)
{
    auto record = ZDrawFont::GetRecordActive ();
    record.source = { columns.Of (on) * record.charWidth, 0 };
    ZDrawFont::SetRecordActive (record);
    if (redraw) // otherwise a change of the value that is not painted yet must stay dirty
        SetDirty (true);
}

void ZAMX_FontTextEdit::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    if (OpensField ())
        ZDrawBack::DrawActive (canvas, time, GetDrawRect ());
    if (showDigits || !OpensField ())
        ZDrawFont::DrawActive (canvas, time, GetTextPlace (), GetDisplayText ());
}

void ZAMX_FontTextEdit::Touch (std::uint32_t time)
{
    lastTouch = time;
    const auto message = editing ? kTouchGoesOn : kTouchStarted;
    editing = true;
    BroadcastMessage (message, this);
}

void ZAMX_FontTextEdit::EndTouch (std::uint32_t time)
{
    lastTouch = time;
    editing = false;
    BroadcastMessage (kTouchEnded, this);
}

bool ZAMX_FontTextEdit::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    lastTouch = mouse.time;
    if (mouse.buttons == kLeftButton && !editing)
        Touch (mouse.time);
    return ZFontTextEdit::OnMouseDown (event, mouse);
}

bool ZAMX_FontTextEdit::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (editing)
        Touch (mouse.time);
    return ZFontTextEdit::OnMouseMove (event, mouse);
}

bool ZAMX_FontTextEdit::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    lastTouch = mouse.time;
    if (editing)
        EndTouch (mouse.time);
    return ZFontTextEdit::OnMouseUp (event, mouse);
}

bool ZAMX_FontTextEdit::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    if (IsFieldOpen () || !IsMouseEnabled ())
        return false;
    Touch (wheel.time);
    ZFontTextEdit::OnMouseWheel (event, wheel);
    return true;
}

bool ZAMX_FontTextEdit::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    if (!IsMouseEnabled ())
        return false;
    if (IsStepKey (key) && !IsFieldOpen ())
        Touch (key.time);
    return ZFontTextEdit::OnKeyDown (event, key);
}

bool ZAMX_FontTextEdit::OnKeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    lastTouch = key.time;
    return ZFontTextEdit::OnKeyRepeat (event, key);
}

bool ZAMX_FontTextEdit::OnKeyUp (ZEvent& event, const ZKeyInput& key)
{
    if (IsStepKey (key) && !IsFieldOpen ())
    {
        lastTouch = key.time;
        if (editing)
            EndTouch (key.time);
    }
    return ZFontTextEdit::OnKeyUp (event, key);
}

bool ZAMX_FontTextEdit::OnOpenModal (ZEvent& event, const ZMouseInput& mouse)
{
    if (!OpensField () || mouse.buttons != (kLeftButton | kDoubleClick) || IsFieldOpen ())
        return false;
    BroadcastMessage (kTouchStarted, this);
    return ZFontTextEdit::OnOpenModal (event, mouse);
}

bool ZAMX_FontTextEdit::OnCloseModal (bool commit)
{
    BroadcastMessage (kTouchEnded, this);
    return ZFontTextEdit::OnCloseModal (commit);
}

void ZAMX_FontTextEdit::OnMouseExit (ZEvent& event, const ZMouseInput& mouse)
{
    // A press can end outside; and a read-out that was disabled under the pointer has no other end.
    if (editing && (!GetFrame ().Contains (mouse.point) || !IsMouseEnabled ()))
        EndTouch (mouse.time);
    ZFontTextEdit::OnMouseExit (event, mouse);
}

} // namespace tessaly
