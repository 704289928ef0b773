#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessaly
{

/// Where the skin's images lie, as PNG files in memory. The bytes stay for as long as the store.
class ZImageStore
{
public:
    virtual ~ZImageStore () = default;

    /// @param name     upper case, with the extension: "TSLY_KNB.PNG"
    /// @param density  pixels a coordinate: 1, or 2 for a variant of twice the width and height, which few images have
    /// @return         nothing when there is no such image
    virtual std::span<const std::byte> Find (std::string_view name, std::int32_t density) const = 0;
};

} // namespace tessaly
