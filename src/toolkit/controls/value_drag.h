#pragma once

#include <cstdint>

namespace tessaly
{

class ZControl;

/// A value dragged along a line: steps for pixels, counted from an anchor, so that rounding to steps loses no motion.
///     value = clamp (step (anchor, pixels, scale * (fine ? kFineFactor : 1)), 0, 1)
/// A drag that has reached a stop is anchored there anew: turning back moves the value at once. What linear dials and
/// value texts share; they decide which pixels count.
class ZValueDrag
{
public:
    void Begin (float value, bool fineModifier); ///< at the press

    /// Anchors the drag at the present value when the fine modifier changes, so that the value does not jump.
    /// @return whether it has changed
    bool SetFine (bool fineModifier, float value);
    bool IsFine () const { return fine; }

    /// @param pixels  since the last call, positive upwards in value
    /// @param scale   steps a pixel
    /// @return the wanted value, 0 to 1
    float Move (const ZControl& control, std::int32_t pixels, float scale);

private:
    void Anchor (float value);

    float anchor = 0.0f;       // normalized
    std::int32_t pixelSum = 0; // since the anchor
    bool fine = false;
};

} // namespace tessaly
