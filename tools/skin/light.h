#pragma once

#include "picture.h"

namespace tessaly::skin
{

// The one light of the skin stands straight above, in front. What faces up catches it, and so do the lower lips of
// recesses; undersides are dark. Along a curve it fades out and never ends hard.

double Facing (double degree); ///< of a side that faces outwards at this angle: 1 the light, -1 away from it

/// Light along the upper half of a circle, as wide as told; gone at the height of its centre.
void RimLight (Picture& picture, Point center, double radius, double lineWidth, Ink ink);
/// Light along the lower half: the lip of a round recess.
void LowerLip (Picture& picture, Point center, double radius, double lineWidth, Ink ink);

/// Light along the top edge of a key with round corners: a pixel wide, inside the box.
void KeyLight (Picture& picture, const Box& box, double radius, Ink ink);
/// A pixel of light below a recess with round corners.
void BoxLip (Picture& picture, const Box& box, double radius, Ink ink);

} // namespace tessaly::skin
