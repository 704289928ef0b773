#include "ch_strip_file_exception.h"

#include "stream.h"
#include <algorithm>
#include <charconv>
#include <string>

namespace tessaly
{

namespace
{

constexpr std::size_t kCutLength = 1020;
constexpr std::string_view kCutMark = "...";

std::string_view MessageOf (std::int32_t code)
{
    constexpr std::array<std::string_view, 5> kMessages{ "No Error.\n", "It's not ChStrip file.\n",
                                                         "The chunk ID is abnormal.\n", "The chunk size is abnormal.\n",
                                                         "No file information chunk.\n" };
    return code >= 0 && static_cast<std::size_t> (code) < kMessages.size () ? kMessages[static_cast<std::size_t> (code)]
                                                                            : "Error that can't be recognized.\n";
}

/// At least eight digits.
std::string Hexadecimal (std::uint32_t number)
{
    constexpr std::size_t kDigits = 8;
    std::array<char, kDigits> digits{};
    const auto end = std::to_chars (digits.data (), digits.data () + kDigits, number, 16).ptr;
    const auto count = static_cast<std::size_t> (end - digits.data ());
    return std::string (kDigits - count, '0').append (digits.data (), count);
}

std::string Describe (bool read, std::int32_t code, ZStream* stream)
{
    std::string text = read ? "read" : "write";
    text += " csv-file error.\n";
    text += MessageOf (code);
    text += "file-pos : 0x";
    return text + Hexadecimal (static_cast<std::uint32_t> (stream->Tell ()));
}

} // namespace

ChStripFileException::ChStripFileException (std::string_view message)
{
    const bool fits = message.size () < kTextBytes;
    const auto end = std::copy_n (message.data (), fits ? message.size () : kCutLength, text.begin ());
    if (!fits)
        std::copy (kCutMark.begin (), kCutMark.end (), end);
}

ChStripFileBinException::ChStripFileBinException (bool read, std::int32_t code, ZStream* stream)
    : ChStripFileException (Describe (read, code, stream))
{
}

} // namespace tessaly
