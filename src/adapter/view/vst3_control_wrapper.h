#pragma once

#include "input.h"
#include "native_key.h"
#include "vstgui/lib/controls/ccontrol.h"
#include <vector>

namespace tessaly
{

class ZGuiEditor;
class ZVst3EditorViewWrapper;

/// The one VSTGUI control: covers the whole frame, shows the panel's surface and turns VSTGUI's calls into the editor's.
class ZVst3ControlWrapper final : public VSTGUI::CControl
{
public:
    /// @param shown  not owned: the view's, as the view itself; both outlive this
    ZVst3ControlWrapper (const VSTGUI::CRect& size, ZGuiEditor& shown, ZVst3EditorViewWrapper& of);
    ZVst3ControlWrapper (const ZVst3ControlWrapper& other); ///< no key of the copy is pressed

    void SetViewSize (const VSTGUI::CRect& rect) { setViewSize (rect, true); }

    bool OnKeyDown (const NativeKey& key); ///< @return whether it was taken
    bool OnKeyUp (const NativeKey& key);
    bool HasPressedKeys () const { return !pressedKeys.empty (); }
    void ForgetKeys () { pressedKeys.clear (); } ///< their releases go elsewhere

    void draw (VSTGUI::CDrawContext* context) override;
    void onMouseDownEvent (VSTGUI::MouseDownEvent& event) override;
    VSTGUI::CMouseEventResult onMouseDown (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved (VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons) override;
    void onMouseWheelEvent (VSTGUI::MouseWheelEvent& event) override;

    CLASS_METHODS (ZVst3ControlWrapper, VSTGUI::CControl)

private:
    template <typename Call>
    bool SendKey (const NativeKey& key, Call call);

    ZGuiEditor& editor;           // not owned
    ZVst3EditorViewWrapper& view; // not owned
    std::vector<NativeKey> pressedKeys;
};

} // namespace tessaly
