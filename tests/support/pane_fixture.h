#pragma once

#include "control.h"
#include "fake_event.h"
#include "listener.h"
#include "matrix_menu_imp.h"
#include "pane_owner.h"
#include "recording_canvas.h"
#include "text_edit_imp.h"
#include "view.h"
#include <doctest/doctest.h>
#include <initializer_list>
#include <utility>
#include <vector>

namespace tessaly
{

/// The least owner under which controls work: it listens to them, writes down what they want and, as an editor does,
/// sets it on every control that it was shown. It has a surface to draw panes on, and a strip whose frames are one row
/// high, so that the row that is drawn is the number of the frame.
class PaneFixture : public InputDriver, public ZPaneOwner, public ZListener
{
public:
    ZPane* modal = nullptr;   // not owned: the test's, as all below
    ZPane* capture = nullptr; //
    ZPane* hover = nullptr;
    ZView* root = nullptr;
    RecordingCanvasImp surface;
    ZOnscreenCanvas canvas{ surface };
    ZBitmap strip = NamedBitmap ("strip");

    void Adopt (ZControl& control) ///< borrowed: the control ends before the fixture
    {
        control.AddListener (this);
        controls.push_back (&control);
    }
    std::vector<float> TakeValues () { return std::exchange (wanted, {}); } ///< broadcast so far, and then forgotten

    Calls Drawn (ZPane& pane)
    {
        surface.Take ();
        canvas.SetOrigin (pane.GetOrigin ());
        pane.Draw (canvas, window.time);
        return surface.Take ();
    }
    int FrameShown (ZPane& pane) ///< the frame of the strip that a control shows; -1 if it shows none
    {
        for (const auto& call : Drawn (pane))
            if (call.operation == "DrawBitmap" && call.text == "strip")
                return call.from.y;
        return -1;
    }

    void OnValue (std::int32_t id, float value) override
    {
        wanted.push_back (value);
        for (auto* control : controls)
            control->SetValueById (id, value);
    }
    bool GetInfo (std::int32_t, void*) override { return false; }
    void SetModalPane (ZPane& pane) override { modal = &pane; }
    void ReleaseModalPane (const ZPane& pane) override { modal = modal == &pane ? nullptr : modal; }
    ZPane* GetCapturePane () const override { return capture; }
    ZPane* GetHoverPane () const override { return hover; }
    ZView* GetRootView () const override { return root; }
    void ForgetPane (const ZPane& pane) override { ReleaseModalPane (pane); }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override { return nullptr; }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return nullptr; }
    void ShowCursor () override { window.ShowCursor (); }
    void CreateTooltip () override {}
    void ShowTooltip (ZPane&) override {}
    void HideTooltip () override {}

private:
    std::vector<float> wanted;       // in the order of the broadcasts
    std::vector<ZControl*> controls; // not owned: the test's
};

/// A fixture with a single control.
template <typename Control>
struct ControlFixture : PaneFixture
{
    using Values = std::vector<float>;

    Control control;

    explicit ControlFixture (const ZRect& frame)
        : control (this, frame, 3)
    {
        Adopt (control);
    }
    ControlFixture (const ZRect& frame, std::int32_t dragMode, float value)
        : ControlFixture (frame)
    {
        control.SetDragMode (dragMode);
        control.SetValue (value);
    }

    // A gesture over the control, and what that broadcasts
    Values Pressed (ZPoint point, std::int32_t modifiers = 0)
    {
        Press (control, point, modifiers);
        return TakeValues ();
    }
    Values Dragged (ZPoint point)
    {
        Drag (control, point);
        return TakeValues ();
    }
    Values Released (ZPoint point)
    {
        Release (control, point);
        return TakeValues ();
    }

    struct Leg
    {
        ZPoint to;
        double value; // of the control when the pointer is there
        std::int32_t modifiers = 0;
    };
    void CheckDrag (std::initializer_list<Leg> legs)
    {
        for (const auto& leg : legs)
        {
            CAPTURE (leg.to);
            CAPTURE (leg.modifiers);
            Drag (control, leg.to, leg.modifiers);
            CHECK (control.GetValue () == doctest::Approx (leg.value));
        }
        TakeValues ();
    }
};

} // namespace tessaly
