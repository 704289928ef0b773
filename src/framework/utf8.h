#pragma once

#include <string_view>

namespace tessaly
{

/// Whether a text is well-formed UTF-8: no stray or missing bytes, no overlong forms, no surrogates, nothing above
/// U+10FFFF.
bool IsUtf8 (std::string_view text);

} // namespace tessaly
