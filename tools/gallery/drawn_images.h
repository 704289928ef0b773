#pragma once

#include "image_store.h"
#include "sketch.h"
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace tessaly::gallery
{

/// The glyphs of the font by list, in the order of its image, and their cells in pixels.
inline constexpr const char* kListedGlyphs = " 0123456789-.";
inline constexpr ZPoint kListedCell{ 14, 22 };

/// The gallery's images, drawn when they are first asked for, in both densities. One thread.
class DrawnImages final : public ZImageStore
{
public:
    std::span<const std::byte> Find (std::string_view name, std::int32_t density) const override;

private:
    mutable std::map<std::pair<std::string, std::int32_t>, Png> drawn; // the bytes stay where they are
};

} // namespace tessaly::gallery
