#pragma once

#include "matrix_menu_imp.h"
#include "overlay_control.h"
#include <memory>

namespace tessaly
{

/// A choice: shows the present one, and on a press with any button opens a menu of all, in one column or several. The
/// value is the position of the selected item, normalized as a switch's; the check mark follows it. With a storage the
/// items are the texts of the parameter's list.
class ZMatrixMenu : public ZOverlayControl
{
public:
    ZMatrixMenu (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);
    ~ZMatrixMenu () override;

    // The items, see ZMatrixMenuImp
    void InsertItem (std::int32_t index, std::string_view text) { imp->InsertItem (index, text); }
    void AddItem (std::string_view text) { imp->AddItem (text); }
    bool RemoveItem (std::int32_t index) { return imp->RemoveItem (index); }
    void RemoveAllItems () { imp->RemoveAllItems (); }
    std::int32_t GetItemCount () const { return imp->GetItemCount (); }
    void SetSelected (std::int32_t index); ///< shows it; the value stays
    std::int32_t GetSelected () const { return imp->GetSelected (); }
    void SetRows (std::int32_t itemsPerColumn) { imp->SetRows (itemsPerColumn); }
    std::int32_t GetRows () const { return imp->GetRows (); }
    void SetPlacement (std::int32_t placement) { imp->SetPlacement (placement); }
    std::int32_t GetPlacement () const { return imp->GetPlacement (); }
    bool SetSelectedText (std::string_view text) { return imp->SetSelectedText (text); }
    std::string GetSelectedText () const { return imp->GetSelectedText (); }
    bool SetItemText (std::int32_t index, std::string_view text) { return imp->SetItemText (index, text); }
    std::string GetItemText (std::int32_t index) const { return imp->GetItemText (index); }
    void SetItemChecked (std::int32_t index, bool on) { imp->SetItemChecked (index, on); }
    void SetAllChecked (bool on) { imp->SetAllChecked (on); }
    void CheckOnly (std::int32_t index) { imp->CheckOnly (index); }
    bool IsItemChecked (std::int32_t index) const { return imp->IsItemChecked (index); }
    void SetItemEnabled (std::int32_t index, bool on) { imp->SetItemEnabled (index, on); }
    void SetAllEnabled (bool on) { imp->SetAllEnabled (on); }
    bool IsItemEnabled (std::int32_t index) const { return imp->IsItemEnabled (index); }

    std::string GetDisplayText () const; ///< the parameter's value as a text, or else that of the selected item
    ZRect GetTextPlace () const { return GetDrawRect (); }

    void UpdateFromStorage (std::int32_t parameterId) override; ///< fills the menu, too
    void SetValue (float newValue) override;                    ///< selects and checks the item of the value
    float StepValue (float normalized, std::int32_t delta, float factor) const override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnOpenModal (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnCloseModal (bool commit) override;

protected:
    ZOverlayImp* GetOverlay () const override { return imp.get (); }

private:
    void FillFromStorage ();
    bool SelectPresent (); // true if that selects anything

    std::unique_ptr<ZMatrixMenuImp> imp; // never null
};

} // namespace tessaly
