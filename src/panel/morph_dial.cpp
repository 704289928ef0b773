#include "morph_dial.h"

#include "canvas.h"
#include <utility>

namespace tessaly
{

void ZAMX_MorphDial::SetMorphColumns (std::int32_t normal, std::int32_t brightOne, std::int32_t modifiedOne)
{
    SetColumns (normal, brightOne);
    modifiedColumn = modifiedOne;
}

void ZAMX_MorphDial::SetBright (bool on, bool redraw)
{
    bright = on;
    if (modified && !on)
        ShowLook (modifiedColumn, redraw);
    else
        ZAMX_EditDialImp::SetBright (on, redraw);
}

void ZAMX_MorphDial::SetModified (bool on)
{
    if (on == modified)
        return;
    modified = on;
    SetBright (bright, true);
}

void ZAMX_MorphDial::OnMorphMoved ()
{
    SetModified (false);
    SetDirty (true);
}

void ZAMX_MorphDial::SetValue (float newValue)
{
    if (newValue == GetValue ())
        return;
    ZAMX_EditDialImp::SetValue (newValue);
    OnMorphMoved ();
}

bool ZAMX_MorphDial::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    lastPoint = mouse.point;
    return ZAMX_EditDialImp::OnMouseDown (event, mouse);
}

bool ZAMX_MorphDial::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (mouse.point != lastPoint)
        moved = true;
    lastPoint = mouse.point;
    return ZAMX_EditDialImp::OnMouseMove (event, mouse);
}

bool ZAMX_MorphDial::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    moved = false;
    return ZAMX_EditDialImp::OnMouseUp (event, mouse);
}

void ZAMX_MorphDial::OnIdle (ZEvent& event, const ZMouseInput& mouse)
{
    ZAMX_EditDialImp::OnIdle (event, mouse);
    if (shownFrame != TargetFrame ())
        SetDirty (true);
}

std::int32_t ZAMX_MorphDial::TargetFrame () const
{
    return FrameOf (ZDrawAnim::GetRecordActive (), true);
}

std::int32_t ZAMX_MorphDial::NextFrame (std::int32_t target) const
{
    const auto weight = moved ? 2 : 5;
    const auto next = Truncate ((target + weight * shownFrame) / (weight + 1.0) + 0.5);
    if (next == shownFrame && target != shownFrame)
        return target > shownFrame ? shownFrame + 1 : shownFrame - 1;
    return next;
}

template <typename DrawPart>
void ZAMX_MorphDial::DrawParts (ZCanvas& canvas, const DrawPart& drawPart) const
{
    const auto rect = GetDrawRect ();
    for (const auto& part : { knobRect, labelRect })
    {
        canvas.SetClipRect (part + rect.TopLeft ());
        drawPart (rect);
    }
    canvas.ClearClip ();
}

void ZAMX_MorphDial::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    const auto target = TargetFrame ();
    shownFrame = std::exchange (firstDraw, false) ? target : NextFrame (target);
    DrawParts (canvas,
               [&] (const ZRect& rect)
               {
                   ZDrawBack::DrawActive (canvas, time, rect);
                   ZDrawAnim::DrawActive (canvas, time, rect, shownFrame);
               });
}

void ZAMX_MorphDial::DrawInactive (ZCanvas& canvas, std::uint32_t time)
{
    shownFrame = TargetFrame ();
    const auto index = FrameOf (ZDrawAnim::GetRecordInactive (), false);
    DrawParts (canvas,
               [&] (const ZRect& rect)
               {
                   ZDrawBack::DrawInactive (canvas, time, rect);
                   ZDrawAnim::DrawInactive (canvas, time, rect, index);
               });
}

} // namespace tessaly
