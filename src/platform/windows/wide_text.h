#pragma once

#include <string>
#include <string_view>

namespace tessaly
{

/// UTF-8 to the system's UTF-16. Bytes that are no UTF-8 become U+FFFD.
std::wstring WideText (std::string_view utf8);

/// And back; a surrogate without its other half becomes U+FFFD.
std::string Utf8Text (std::wstring_view wide);

} // namespace tessaly
