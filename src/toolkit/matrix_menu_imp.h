#pragma once

#include "overlay_imp.h"
#include <memory>

namespace tessaly
{

class ZMatrixMenuImp : public ZOverlayImp
{
};

} // namespace tessaly
