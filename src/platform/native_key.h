#pragma once

#include "input.h"
#include <cstdint>

namespace tessaly
{

/// A key as the toolkit tells keys, but with its whole character, which reaches the panel byte by byte.
struct NativeKey
{
    char32_t character = 0; // 0: none
    std::int32_t key = kKeyNone;
    std::int32_t modifiers = 0; // mask of Modifier

    friend bool operator== (const NativeKey&, const NativeKey&) = default;
};

} // namespace tessaly
