#pragma once

#include "block_math.h"

#include <span>

namespace tessaly
{

/// The versions that this processor runs, from the plain one to the widest.
std::span<const BlockMath* const> blockMathVersions ();

} // namespace tessaly
