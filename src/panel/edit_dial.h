#pragma once

#include "anim_dial.h"
#include "look_columns.h"
#include <cstdint>

namespace tessaly
{

inline constexpr std::int32_t kTouchHoldMs = 2000; // how long a touched dial stays lit, or its ring open

/// A large dial that tells the editor when its user begins to edit it and when that has ended: kEditingStarted at the
/// first press, wheel notch or step key, kEditingEnded a hold time after the last one. The release of the mouse does
/// not end it. Lit or not are two columns of its strip, each as wide as the frame.
class ZAMX_EditDialImp : public ZAnimDial
{
public:
    using ZAnimDial::ZAnimDial;

    void SetColumns (std::int32_t normal, std::int32_t bright) { columns = { normal, bright }; }
    void StartEditing (std::uint32_t time); ///< as a touch at that time, but tells it each time
    bool IsEditing () const { return editing; }
    std::int32_t GetHoldTime () const { return holdTime; }
    void SetHoldTime (std::int32_t milliseconds) { holdTime = milliseconds; }
    virtual void SetBright (bool on, bool redraw); ///< redraw: the pane is to be painted again
    void EndEditingIfActive (bool notify);
    void EndEditing (bool notify); ///< notify: with kEditingEnded

    // Wheel and keys do nothing while the mouse is disabled
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    void ShowLook (std::int32_t column, bool redraw);

private:
    void Touch (std::uint32_t time);

    LookColumns columns;
    bool editing = false;
    std::uint32_t lastTouch = 0; // milliseconds
    std::int32_t holdTime = kTouchHoldMs;
};

} // namespace tessaly
