#pragma once

#include "editor_window.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace tessaly
{

class PanelSurface;

/// The one VSTGUI control: covers the whole frame, shows the panel's surface and turns VSTGUI's calls into a window's.
class ZVst3ControlWrapper final : public VSTGUI::CControl
{
public:
    ZVst3ControlWrapper (const VSTGUI::CRect& size, EditorWindowListener& hearing); ///< not owned: outlives this
    ZVst3ControlWrapper (const ZVst3ControlWrapper& other) = default;

    void SetViewSize (const VSTGUI::CRect& rect) { setViewSize (rect, true); }
    void SetSurface (const PanelSurface* shown) { surface = shown; } ///< not owned; null: nothing is drawn

    void draw (VSTGUI::CDrawContext* context) override;
    void onMouseDownEvent (VSTGUI::MouseDownEvent& event) override;
    VSTGUI::CMouseEventResult onMouseDown (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    void onMouseWheelEvent (VSTGUI::MouseWheelEvent& event) override;

    CLASS_METHODS (ZVst3ControlWrapper, VSTGUI::CControl)

private:
    EditorWindowListener* listener;        // not owned: the view
    const PanelSurface* surface = nullptr; // not owned: the window's
};

} // namespace tessaly
