#pragma once

#include "control.h"
#include "event.h"
#include "fake_event.h"
#include "listener.h"
#include "matrix_menu_imp.h"
#include "pane_owner.h"
#include "text_edit_imp.h"
#include "view.h"
#include <utility>
#include <vector>

namespace tessaly
{

/// The least owner under which controls work: it listens to them, writes down what they want and, as an editor does,
/// sets it on every control that it was shown.
class PaneDesk : public ZPaneOwner, public ZListener
{
public:
    FakeEvent window;
    ZPane* modal = nullptr;   // not owned: the test's, as all below
    ZPane* capture = nullptr; //
    ZPane* hover = nullptr;
    ZView* root = nullptr;

    void Adopt (ZControl& control) ///< borrowed: the control ends before the desk
    {
        control.AddListener (this);
        controls.push_back (&control);
    }
    std::vector<float> TakeValues () { return std::exchange (wanted, {}); } ///< broadcast so far, and then forgotten

    // A mouse over one control: points in root coordinates, the left button unless told otherwise
    ZMouseInput At (ZPoint point, std::int32_t buttons = kLeftButton, std::int32_t modifiers = 0)
    {
        window.pointer = point;
        return { point, buttons, modifiers, window.time };
    }
    bool Press (ZPane& pane, ZPoint point, std::int32_t modifiers = 0, std::int32_t buttons = kLeftButton)
    {
        ZEvent event (window);
        return pane.MouseDown (event, At (point, buttons, modifiers));
    }
    bool Drag (ZPane& pane, ZPoint point, std::int32_t modifiers = 0)
    {
        ZEvent event (window);
        return pane.MouseMove (event, At (point, kLeftButton, modifiers));
    }
    bool Release (ZPane& pane, ZPoint point)
    {
        ZEvent event (window);
        return pane.MouseUp (event, At (point, 0));
    }
    bool Wheel (ZPane& pane, std::int32_t delta)
    {
        ZEvent event (window);
        return pane.MouseWheel (event, { window.pointer, delta, window.time });
    }
    bool Key (ZPane& pane, std::int32_t key, std::int32_t modifiers = 0, char character = 0)
    {
        ZEvent event (window);
        return pane.KeyDown (event, { character, modifiers, key, window.time });
    }

    void OnValue (std::int32_t id, float value) override
    {
        wanted.push_back (value);
        for (auto* control : controls)
            control->SetValueById (id, value);
    }
    void SetModalPane (ZPane& pane) override { modal = &pane; }
    void ReleaseModalPane (const ZPane& pane) override { modal = modal == &pane ? nullptr : modal; }
    ZPane* GetCapturePane () const override { return capture; }
    ZPane* GetHoverPane () const override { return hover; }
    ZView* GetRootView () const override { return root; }
    void ForgetPane (const ZPane& pane) override { ReleaseModalPane (pane); }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override { return nullptr; }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return nullptr; }
    void CreateTooltip () override {}
    void ShowTooltip (ZPane&) override {}
    void HideTooltip () override {}

private:
    std::vector<float> wanted;       // in the order of the broadcasts
    std::vector<ZControl*> controls; // not owned: the test's
};

} // namespace tessaly
