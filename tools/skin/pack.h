#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly::skin
{

/// All images at this density, as the module carries them: a tile for each frame.
std::vector<std::byte> MakeSkinPack (std::int32_t density);

} // namespace tessaly::skin
