#include "value_drag.h"

#include "control.h"
#include <algorithm>

namespace tessaly
{

void ZValueDrag::Anchor (float value)
{
    anchor = value;
    pixelSum = 0;
}

void ZValueDrag::Begin (float value, bool fineModifier)
{
    fine = fineModifier;
    Anchor (value);
}

bool ZValueDrag::SetFine (bool fineModifier, float value)
{
    if (fineModifier == fine)
        return false;
    Begin (value, fineModifier);
    return true;
}

float ZValueDrag::Move (const ZControl& control, std::int32_t pixels, float scale)
{
    pixelSum += pixels;
    const auto factor = (fine ? kFineFactor : 1.0f) * scale;
    const auto wanted = std::clamp (control.StepValue (anchor, pixelSum, factor), 0.0f, 1.0f);
    if ((wanted <= 0.0f && pixelSum < 0) || (wanted >= 1.0f && pixelSum > 0))
        Anchor (wanted);
    return wanted;
}

} // namespace tessaly
