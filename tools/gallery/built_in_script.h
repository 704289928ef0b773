#pragma once

#include <string_view>

namespace tessaly::gallery
{

/// What plays when no other script is named: every control in use.
extern const std::string_view kBuiltInScript;

} // namespace tessaly::gallery
