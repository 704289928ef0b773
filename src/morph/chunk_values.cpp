#include "chunk_values.h"

#include <array>
#include <cstring>
#include <string_view>

namespace tessaly
{

std::int32_t DetectByteOrder ()
{
    constexpr std::uint32_t kProbe = 0x31323334; // the digits 1 to 4, highest byte first
    std::array<char, sizeof (kProbe)> bytes{};
    std::memcpy (bytes.data (), &kProbe, sizeof (kProbe));
    const std::string_view digits (bytes.data (), bytes.size ());
    return digits == "1234" ? kHighestByteFirst : digits == "4321" ? kLowestByteFirst : kOtherOrder;
}

} // namespace tessaly
