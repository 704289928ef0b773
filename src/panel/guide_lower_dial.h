#pragma once

#include "anim_dial.h"
#include "look_columns.h"
#include <cstdint>

namespace tessaly
{

class ZAMX_GuideUpperDial;

/// The small knob of a parameter. Its ring takes over every gesture that begins on it: press, move, release, wheel and
/// keys go there, enter and exit do not, as the pointer passes from the knob to the ring that grows over it. A knob
/// without a ring is a plain dial that tells the editor of presses, wheel and step keys itself.
class ZAMX_GuideLowerDial final : public ZAnimDial
{
public:
    using ZAnimDial::ZAnimDial;

    void SetColumns (std::int32_t normal, std::int32_t bright) { columns = { normal, bright }; }
    void SetGuide (ZAMX_GuideUpperDial* dial) { guide = dial; } ///< borrowed, or null
    ZAMX_GuideUpperDial* GetGuide () const { return guide; }
    void SetBright (bool on, bool redraw); ///< redraw: the pane is to be painted again

    // Wheel and keys do nothing while the mouse is disabled
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyUp (ZEvent& event, const ZKeyInput& key) override;

protected:
    std::int32_t FrameOf (const ZAnimRecord& record, bool activeLook) const override; ///< the first under its ring

private:
    LookColumns columns;
    ZAMX_GuideUpperDial* guide = nullptr; // not owned: the editor's, ends together with this
};

} // namespace tessaly
