#pragma once

#include <string>
#include <string_view>

namespace tessaly
{

/// From the system's ANSI code page to UTF-8. @return empty when it can't be converted
std::string Utf8OfAnsi (std::string_view text);

} // namespace tessaly
