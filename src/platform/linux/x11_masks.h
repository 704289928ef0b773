#pragma once

#include "input.h"
#include <cstdint>
#include <xcb/xcb.h>

namespace tessaly
{

/// The toolkit's masks of what X reports as one word with an event or a query.
inline std::int32_t ButtonsOf (std::uint32_t state)
{
    return ((state & XCB_BUTTON_MASK_1) != 0 ? kLeftButton : 0) |
           ((state & XCB_BUTTON_MASK_2) != 0 ? kMiddleButton : 0) |
           ((state & XCB_BUTTON_MASK_3) != 0 ? kRightButton : 0);
}

inline std::int32_t ModifiersOf (std::uint32_t state)
{
    return ((state & XCB_MOD_MASK_SHIFT) != 0 ? kShift : 0) | ((state & XCB_MOD_MASK_CONTROL) != 0 ? kControl : 0) |
           ((state & XCB_MOD_MASK_1) != 0 ? kAlt : 0) | ((state & XCB_MOD_MASK_4) != 0 ? kCommand : 0);
}

} // namespace tessaly
