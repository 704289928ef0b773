#include "memory_stream.h"
#include "null_stream.h"
#include <array>
#include <cstring>
#include <doctest/doctest.h>
#include <limits>
#include <string>

using namespace tessaly;

namespace
{

constexpr auto kFarthest = std::numeric_limits<std::int32_t>::max ();

std::string NextLine (ZStream& stream, const char* delimiters = nullptr)
{
    std::array<char, 17> buffer{};
    const auto length = stream.ReadLine (buffer.data (), 16, delimiters);
    CHECK (std::strlen (buffer.data ()) == static_cast<std::size_t> (length));
    return buffer.data ();
}

} // namespace

TEST_CASE ("ZMemoryStream: reads what is there, writes what there is room for, and seeks within")
{
    std::array<char, 10> memory{ 'a', 'b', 'c', 'd' };
    ZMemoryStream stream (memory.data (), 8, 4);
    std::array<char, 8> read{};
    CHECK (stream.Read (read.data (), 3) == 3);
    CHECK (std::string (read.data ()) == "abc");
    CHECK (stream.Read (read.data (), 8) == 1);
    CHECK (stream.Read (read.data (), -1) == 0);

    CHECK (stream.Write ("efghij", 6) == 4);
    CHECK (stream.GetSize () == 8);
    CHECK (std::string (memory.data (), 10) == std::string ("abcdefgh\0\0", 10));

    CHECK (stream.Seek (-3, kSeekFromHere) == 5);
    CHECK (stream.Seek (-2, kSeekFromEnd) == 6);
    CHECK (stream.Seek (-kFarthest, kSeekFromHere) == 0);
    CHECK (stream.Seek (kFarthest, kSeekFromHere) == 8);
}

TEST_CASE ("ZNullStream: counts what is written and gives nothing back")
{
    ZNullStream stream;
    CHECK (stream.Write ("12345", 5) == 5);
    CHECK (stream.Seek (1, kSeekFromStart) == 1);
    CHECK (stream.Write ("12", 2) == 2);
    CHECK (stream.GetSize () == 5);
    char byte = 'x';
    CHECK (stream.Read (&byte, 1) == 0);
    CHECK (stream.Write ("", kFarthest) == kFarthest); // and the count stops at its end
    CHECK (stream.GetSize () == kFarthest);
}

TEST_CASE ("ZStream: a line ends at the earliest of all terminators")
{
    char text[] = "one\r\ntwo\rk=v,w\n\nlast";
    const auto size = static_cast<std::int32_t> (sizeof (text)) - 1;
    ZMemoryStream stream (text, size, size);
    CHECK (NextLine (stream) == "one");
    CHECK (NextLine (stream) == "two");
    CHECK (NextLine (stream, ",=") == "k");
    CHECK (NextLine (stream, "=,") == "v");
    CHECK (NextLine (stream) == "w");
    CHECK (NextLine (stream).empty ());
    CHECK (NextLine (stream) == "last");
    CHECK (stream.Tell () == size);
    CHECK (NextLine (stream).empty ());
}

TEST_CASE ("ZStream: a written line ends in CR LF, and both line functions can be replaced")
{
    std::array<char, 32> memory{};
    ZMemoryStream stream (memory.data (), 32);
    CHECK (stream.WriteLine ("whole", 0) == 5);
    CHECK (stream.WriteLine ("part of it", 4) == 4);
    CHECK (std::string (memory.data ()) == "whole\r\npart\r\n");
    stream.SetLineWriter ([] (ZStream&, const char*, std::int32_t length) { return -length; });
    CHECK (stream.WriteLine ("abc", 0) == -3);
    stream.SetLineReader ([] (ZStream&, char*, std::int32_t size, const char*) { return size; });
    CHECK (stream.ReadLine (nullptr, 9, nullptr) == 9);
}
