#include "text_buffer.h"

#include "utf8.h"
#include <algorithm>

namespace tessaly
{

void PutText (char* buffer, std::string_view text)
{
    const auto length = std::min (text.size (), static_cast<std::size_t> (kTextSize - 1));
    std::copy_n (text.data (), length, buffer);
    buffer[length] = '\0';
}

std::string_view CutAtCharacter (std::string_view text, std::size_t size)
{
    if (text.size () <= size)
        return text;
    while (size > 0 && ContinuesCharacter (text[size]))
        --size;
    return text.substr (0, size);
}

void CopyText (std::string_view text, char* buffer, std::int32_t size)
{
    if (buffer == nullptr || size <= 0)
        return;
    const auto room = static_cast<std::size_t> (size);
    const auto length = std::min (text.size (), room);
    std::copy_n (text.data (), length, buffer);
    std::fill_n (buffer + length, room + 1 - length, '\0');
}

} // namespace tessaly
