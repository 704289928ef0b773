#pragma once

#include "button.h"
#include <cstdint>
#include <optional>

namespace tessaly
{

enum ClickBehaviour : std::int32_t // bits
{
    kClickPress = 1,   // sends 1 at a press inside
    kClickRelease = 2, // sends 0 at a release inside, and keeps the capture when the pointer leaves
    kClickRepeat = 4   // sends 1 at once and then in each interval while held inside
};

/// A momentary button. Repeats happen when the mouse moves, so the owner has to go on sending moves.
class ZClickButton : public ZButton
{
public:
    using ZButton::ZButton;

    void SetBehaviour (std::int32_t bits) { behaviour = bits; } ///< of ClickBehaviour
    std::int32_t GetBehaviour () const { return behaviour; }
    void SetRepeatInterval (std::uint32_t milliseconds) { repeatInterval = milliseconds; }
    std::uint32_t GetRepeatInterval () const { return repeatInterval; }

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;

private:
    void Repeat (bool inside, std::uint32_t time);

    std::int32_t behaviour = kClickPress;
    std::optional<std::uint32_t> lastRepeat; // milliseconds; none: the next repeat is due
    std::uint32_t repeatInterval = 200;      // milliseconds
};

} // namespace tessaly
