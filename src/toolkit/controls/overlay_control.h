#pragma once

#include "control.h"
#include "overlay_imp.h"

namespace tessaly
{

/// A control that something opens over: a text field or a menu. While that is open the control covers it, and drawing
/// and all input go to it, a reset click included; while it is closed, this is a plain control.
class ZOverlayControl : public ZControl
{
public:
    using ZControl::ZControl;

    ZRect GetDrawRect () const override;
    ZRect GetHitRect () const override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyUp (ZEvent& event, const ZKeyInput& key) override;
    bool OnResetClick (ZEvent& event, const ZMouseInput& mouse) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override; ///< passed on open or not

protected:
    virtual ZOverlayImp* GetOverlay () const = 0; ///< null: nothing ever opens here
    bool IsOverlayOpen () const { return OpenOverlay () != nullptr; }
    void RepaintSurface (); ///< for the end of an overlay, which may have covered other panes

private:
    ZOverlayImp* OpenOverlay () const; // null while closed
    void DrawOwnLook (ZCanvas& canvas, std::uint32_t time);

    bool drawsOwnLook = false; // what is open lies beside the control, which is being drawn in its own place
};

} // namespace tessaly
