#pragma once

#include "anim_dial.h"
#include "edit_dial.h"
#include <cstdint>
#include <optional>

namespace tessaly
{

class ZAMX_FontTextEdit;
class ZAMX_GuideLowerDial;

/// The ring of a parameter: the same value as its small knob, about the same centre, in a size that can be handled. It
/// lies above the panel and is hidden until a gesture on the knob opens it; then it grows out of the knob, takes the
/// gesture, and shrinks back. It tells the editor kEditingStarted when it opens and kEditingEnded when it closes.
///
/// Idle - growing - open - shrinking - idle. By the mouse it stays open until a release at full size or until the
/// pointer leaves; by wheel or key until the pointer leaves or a hold time after the last touch. What opens it moves
/// no value: the first notch, the first key, and a press until the pointer leaves the inner circle.
///
/// Angles are measured from the knob's centre, also while the frame grows. Its strip is an active ZDrawAnim record of
/// frames in the ring's size. Rectangles are in the parent's coordinates.
class ZAMX_GuideUpperDial final : public ZAnimDial
{
public:
    enum OpenReason : std::int32_t
    {
        kByNothing = 0,
        kByMouse = 1,
        kByWheel = 2,
        kByKey = 3
    };

    using ZAnimDial::ZAnimDial;

    bool IsIdle () const { return state == State::kIdle; }
    void SetLowerDial (ZAMX_GuideLowerDial* dial); ///< borrowed; with its background as it is now
    /// Borrowed. @param shownAtRest  is without its digits while the ring is there
    /// @param shownAbove             shows in its place, above the ring
    void SetTexts (ZAMX_FontTextEdit* shownAtRest, ZAMX_FontTextEdit* shownAbove);
    std::int32_t GetHoldTime () const { return holdTime; }
    void SetHoldTime (std::int32_t milliseconds) { holdTime = milliseconds; }
    /// @param origin                top left of the knob
    /// @param smallSize, bigSize    width and height of knob and ring
    void SetGeometry (ZPoint origin, ZPoint smallSize, ZPoint bigSize);
    void Open (OpenReason reason);
    void Close (bool notify); ///< begins to shrink. notify: with kEditingEnded
    void CloseIfOpen (bool notify);
    void CloseAtOnce (); ///< without shrinking; kEditingEnded unless it was closing anyway
    void StepAnimation (std::uint32_t time);
    static bool IsInCircle (const ZRect& rect, ZPoint point); ///< of the rectangle's width, from its top left

    void ConfigureVector (bool opposite, ZVectorToDegree& target) const override;
    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    void OnMouseExit (ZEvent& event, const ZMouseInput& mouse) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override;

private:
    enum class State
    {
        kIdle,
        kGrowing,
        kShrinking,
        kOpen
    };

    bool HasCapturePane () const;
    void Rest (); // back to idle
    void CloseWhenRested (std::uint32_t time);

    State state = State::kIdle;
    OpenReason openReason = kByNothing;
    std::optional<std::uint32_t> animationStart; // milliseconds; none: not begun
    std::uint32_t lastTouch = 0;                 // milliseconds
    std::int32_t holdTime = kTouchHoldMs;

    bool pressed = false; // and the pointer has not left the inner circle since
    ZPoint pressPoint;

    ZPoint ringOffset; // half of what the ring is larger than the knob
    ZRect smallRect;   // the knob
    ZRect bigRect;     // the ring at full size
    ZRect innerRect;   // the circle in which a press moves nothing

    ZAMX_GuideLowerDial* lowerDial = nullptr; // not owned, as all below: the editor's, end together with this
    ZAMX_FontTextEdit* valueText = nullptr;   //
    ZAMX_FontTextEdit* guideText = nullptr;   //
    ZBitmap* panelImage = nullptr;            // what lies under the knob
};

} // namespace tessaly
