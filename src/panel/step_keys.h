#pragma once

#include "input.h"

namespace tessaly
{

/// Whether a key steps the value of a control: up, down, page up and page down.
inline bool IsStepKey (const ZKeyInput& key)
{
    return key.key == kKeyUp || key.key == kKeyDown || key.key == kKeyPageUp || key.key == kKeyPageDown;
}

} // namespace tessaly
