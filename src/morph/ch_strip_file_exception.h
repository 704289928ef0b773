#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <string_view>

namespace tessaly
{

class ZStream;

/// What is wrong with a stored strip.
class ChStripFileException : public std::exception
{
public:
    static constexpr std::size_t kTextBytes = 1024; // the terminator included

    /// A text that does not fit is cut and ends in three points.
    explicit ChStripFileException (std::string_view message);

    const char* what () const noexcept override { return text.data (); }

private:
    std::array<char, kTextBytes> text{};
};

enum class ChStripFileFault : std::int32_t
{
    none = 0,
    otherFile = 1,
    abnormalId = 2,
    abnormalSize = 3,
    noFileInformation = 4
};

/// A fault in a tree of chunks: three lines, with the place in the stream.
class ChStripFileBinException final : public ChStripFileException
{
public:
    /// @param read  false: writing  @param code  of ChStripFileFault; any other one has a text too
    /// @param stream  where it happened, for the position
    ChStripFileBinException (bool read, std::int32_t code, ZStream* stream);
};

} // namespace tessaly
