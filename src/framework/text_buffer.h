#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessaly
{

inline constexpr std::int32_t kTextSize = 256; // bytes of every text of the framework, the terminator included
using ZText = std::array<char, kTextSize>;     // zero-terminated, 8-bit

/// Writes a text into a buffer of kTextSize bytes, zero-terminated, cut if it does not fit.
void PutText (char* buffer, std::string_view text);

/// The beginning of a UTF-8 text that fits into `size` bytes without a piece of a character at its end.
std::string_view CutAtCharacter (std::string_view text, std::size_t size);

/// Writes a text into a buffer of size + 1 bytes: at most `size` characters, the rest of the buffer zero.
/// A null buffer or a size below 1 does nothing.
void CopyText (std::string_view text, char* buffer, std::int32_t size);

} // namespace tessaly
