#include "control.h"

#include "event.h"
#include "list_steps.h"
#include "parameter_storage_base.h"
#include <algorithm>
#include <cmath>

namespace tessaly
{

ZControl::ZControl (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZPane (paneOwner)
{
    ZPane::SetFrame (rect);
    SetId (controlId);
}

void ZControl::SetStorage (const ZParameterStorageBase* newStorage)
{
    storage = newStorage;
    if (storage != nullptr)
        UpdateFromStorage (kEveryPane);
}

bool ZControl::HasParameter () const
{
    return storage != nullptr && GetId () >= 0 && GetId () < storage->GetParameterCount ();
}

void ZControl::UpdateFromStorage (std::int32_t parameterId)
{
    if ((parameterId != GetId () && parameterId != kEveryPane) || !HasParameter ())
        return;
    SetStep (storage->GetStep (GetId ()));
    SetMinimum (storage->GetMinimum (GetId ()));
    SetMaximum (storage->GetMaximum (GetId ()));
    SetDefault (storage->GetDefaultNormalized (GetId ()));
    SetValue (storage->GetNormalized (GetId ()));
    SetDirty (true);
}

void ZControl::SetValue (float newValue)
{
    if (newValue == value)
        return;
    value = newValue;
    SetDirty (true);
}

void ZControl::SetValueById (std::int32_t controlId, float newValue)
{
    if (controlId == GetId ())
        SetValue (newValue);
}

void ZControl::SetIndex (std::int32_t index)
{
    SetValue (IntToNormalized (index, GetStep ()));
}

std::int32_t ZControl::GetIndex () const
{
    return NormalizedToInt (value, GetStep ());
}

bool ZControl::MouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    return IsResetModifier (mouse.modifiers) ? ResetClick (event, mouse) : ZPane::MouseDown (event, mouse);
}

bool ZControl::ResetClick (ZEvent& event, const ZMouseInput& mouse)
{
    if (!IsVisible () || !IsMouseEnabled ())
        return false;
    const ZEventStateSt state (event, GetOrigin ());
    return OnResetClick (event, Local (mouse));
}

bool ZControl::OnResetClick (ZEvent& /*event*/, const ZMouseInput& /*mouse*/)
{
    BroadcastValue (GetId (), GetDefault ());
    return false;
}

float ZControl::ToPlain (float normalized) const
{
    if (converters.toPlain != nullptr)
        return converters.toPlain (normalized, minimum, maximum);
    return HasParameter () ? storage->NormalizedToPlain (GetId (), normalized) : normalized;
}

float ZControl::FromPlain (float plain) const
{
    if (converters.toNormalized != nullptr)
        return converters.toNormalized (plain, minimum, maximum);
    return HasParameter () ? storage->PlainToNormalized (GetId (), plain) : plain;
}

std::string ZControl::GetPlainValueText (float plain) const
{
    ZText text{};
    if (converters.toText != nullptr)
        converters.toText (plain, text.data ());
    else if (HasParameter ())
        storage->PlainToText (GetId (), plain, text.data (), kTextSize - 1);
    return text.data ();
}

void ZControl::SetKeySteps (std::int32_t small, std::int32_t large)
{
    smallKeyStep = small;
    largeKeyStep = large;
}

float ZControl::StepValue (float normalized, std::int32_t delta, float factor) const
{
    if (HasParameter ())
        return storage->StepNormalized (GetId (), normalized, delta, factor);
    return std::clamp (normalized + static_cast<float> (delta) * factor * GetStep (), 0.0f, 1.0f);
}

bool ZControl::BroadcastChange (float wanted)
{
    if (wanted == value || std::isnan (wanted))
        return false;
    BroadcastValue (GetId (), wanted);
    return true;
}

bool ZControl::StepBy (std::int32_t delta)
{
    return BroadcastChange (std::clamp (StepValue (value, delta, 1.0f), 0.0f, 1.0f));
}

bool ZControl::StepByKey (std::int32_t delta)
{
    if (delta != 0) // no step moves nothing; a value between the steps of a list would go to one of them
        StepBy (delta);
    return true;
}

bool ZControl::OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& wheel)
{
    return StepBy (wheel.delta);
}

bool ZControl::OnKeyDown (ZEvent& /*event*/, const ZKeyInput& key)
{
    switch (key.key)
    {
    case kKeyUp:
        return StepByKey (smallKeyStep);
    case kKeyDown:
        return StepByKey (-smallKeyStep);
    case kKeyPageUp:
        return StepByKey (largeKeyStep);
    case kKeyPageDown:
        return StepByKey (-largeKeyStep);
    default:
        return false;
    }
}

bool ZControl::OnKeyRepeat (ZEvent& event, const ZKeyInput& key)
{
    return OnKeyDown (event, key);
}

} // namespace tessaly
