#include "kprd_text_button.h"

#include "canvas.h"
#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "effect_wrapper.h"
#include "pane_owner.h"

namespace tessaly
{

ZAMX_KPRDTextButton::ZAMX_KPRDTextButton (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZBitmapClickButton (paneOwner, rect, controlId)
    , textRect (rect)
{
}

void ZAMX_KPRDTextButton::SetTextRect (const ZRect& rect)
{
    textRect = rect + GetPosition ();
}

void ZAMX_KPRDTextButton::SetStripStorage (ZParameterStorageBase* newStorage)
{
    stripStorage = dynamic_cast<ZChannel_StripStorage*> (newStorage);
}

const char* ZAMX_KPRDTextButton::NameOfSet () const
{
    ZEffect* effect = nullptr;
    if (GetOwner () == nullptr || !GetOwner ()->GetInfo (kCodeEffect, &effect))
        return nullptr;
    auto* const strip = dynamic_cast<ZChannel_StripEffect*> (effect);
    return strip != nullptr ? strip->GetKeyPointName () : nullptr;
}

void ZAMX_KPRDTextButton::DrawActive (ZCanvas& canvas, std::uint32_t time)
{
    ZBitmapClickButton::DrawActive (canvas, time);
    const auto* name = stripStorage != nullptr ? NameOfSet () : nullptr;
    if (name == nullptr)
        return;
    canvas.SetFont ("Arial", fontSize, 0);
    canvas.SetColor (textColor, 255);
    const auto fits = textRect.Width () > canvas.GetTextWidth (name); // a long name keeps its beginning
    canvas.DrawText (name, textRect, (fits ? kAlignCenter : kAlignLeft) | kAlignMiddle);
}

} // namespace tessaly
