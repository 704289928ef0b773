#pragma once

#include <iostream>
#include <string>

namespace tessaly::render
{

/// A line on standard error, at once, since several renders may warn concurrently.
inline void Warn (const std::string& text)
{
    std::cerr << "strip-render: " + text + "\n";
}

} // namespace tessaly::render
