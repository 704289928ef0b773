#pragma once

#include "control.h"

namespace tessaly
{

/// What the buttons have in common: nothing but their kind.
class ZButton : public ZControl
{
public:
    using ZControl::ZControl;
};

} // namespace tessaly
