#include "matrix_menu.h"

#include "list_steps.h"
#include "pane_owner.h"
#include "parameter_storage_base.h"
#include "truncate.h"

namespace tessaly
{

namespace
{

/// Keeps the items where no menu can be shown.
class ItemsOnly final : public ZMatrixMenuImp
{
    bool Open (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) override { return false; }
    bool Close (bool /*commit*/) override { return false; }
};

std::unique_ptr<ZMatrixMenuImp> MenuImpOf (ZPaneOwner* owner)
{
    auto imp = owner != nullptr ? owner->CreateMenuImp () : nullptr;
    if (imp == nullptr)
        imp = std::make_unique<ItemsOnly> ();
    return imp;
}

/// While nothing is selected, a step only selects.
std::int32_t WithoutFirst (std::int32_t delta)
{
    if (delta == 0)
        return 0;
    return delta > 0 ? delta - 1 : delta + 1;
}

} // namespace

ZMatrixMenu::ZMatrixMenu (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZOverlayControl (paneOwner, rect, controlId)
    , imp (MenuImpOf (paneOwner))
{
    imp->SetControl (this);
}

ZMatrixMenu::~ZMatrixMenu () = default;

void ZMatrixMenu::SetSelected (std::int32_t index)
{
    const auto before = GetSelected ();
    imp->SetSelected (index);
    if (GetSelected () != before)
        SetDirty (true);
}

void ZMatrixMenu::UpdateFromStorage (std::int32_t parameterId)
{
    if ((parameterId == GetId () || parameterId == kEveryPane) && HasParameter ())
        FillFromStorage ();
    ZOverlayControl::UpdateFromStorage (parameterId);
}

void ZMatrixMenu::FillFromStorage ()
{
    const auto count = GetStorage ()->GetListCount (GetId ());
    imp->RemoveAllItems ();
    imp->ReserveItems (count);
    for (std::int32_t entry = 0; entry < count; ++entry)
    {
        ZText text{};
        GetStorage ()->GetListText (GetId (), entry, text.data (), kTextSize - 1);
        imp->AddItem (text.data ());
    }
}

void ZMatrixMenu::SetValue (float newValue)
{
    ZOverlayControl::SetValue (newValue);
    const auto index = NormalizedToInt (newValue, GetStep ());
    SetSelected (index);
    CheckOnly (index);
}

float ZMatrixMenu::StepValue (float normalized, std::int32_t delta, float factor) const
{
    const auto steps = GetSelected () < 0 ? WithoutFirst (delta) : delta;
    if (HasParameter ())
        return ZOverlayControl::StepValue (normalized, steps, factor);
    const auto moved = Truncate (static_cast<double> (steps) * static_cast<double> (factor));
    const auto target = static_cast<std::int64_t> (NormalizedToInt (normalized, GetStep ())) + moved;
    return IntToNormalized (Truncate (static_cast<double> (target)), GetStep ());
}

bool ZMatrixMenu::OnMouseWheel (ZEvent& event, const ZWheelInput& wheel)
{
    const bool stepping = wheel.delta != 0 && !IsOverlayOpen ();
    const auto taken = ZOverlayControl::OnMouseWheel (event, wheel);
    return (stepping && SelectPresent ()) || taken;
}

bool ZMatrixMenu::OnKeyDown (ZEvent& event, const ZKeyInput& key)
{
    const bool stepping = !IsOverlayOpen ();
    const auto taken = ZOverlayControl::OnKeyDown (event, key);
    return (stepping && taken && SelectPresent ()) || taken;
}

/// The step that only selects may wish for the value that there is already, which no one is told: then it is selected
/// here.
bool ZMatrixMenu::SelectPresent ()
{
    if (GetSelected () >= 0)
        return false;
    SetValue (GetValue ());
    return GetSelected () >= 0;
}

std::string ZMatrixMenu::GetDisplayText () const
{
    return HasParameter () ? GetValueText (GetValue ()) : GetSelectedText ();
}

bool ZMatrixMenu::OnOpenModal (ZEvent& event, const ZMouseInput& mouse)
{
    if (IsOverlayOpen () || !imp->Open (event, mouse))
        return false;
    SetDirty (true);
    return true;
}

bool ZMatrixMenu::OnCloseModal (bool commit)
{
    const bool covered = IsOverlayOpen ();
    const auto result = imp->Close (commit);
    if (commit)
    {
        BroadcastValue (GetId (), IntToNormalized (GetSelected (), GetStep ()));
        SetDirty (true);
    }
    if (covered)
        RepaintSurface ();
    return result;
}

} // namespace tessaly
