#include "memory_stream.h"
#include "null_stream.h"
#include <array>
#include <doctest/doctest.h>
#include <limits>
#include <string>

using namespace tessaly;

TEST_CASE ("ZMemoryStream: reads what is there, writes what there is room for, and seeks within")
{
    constexpr auto kFarthest = std::numeric_limits<std::int32_t>::max ();
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

TEST_CASE ("ZNullStream: counts what is written, up to the greatest count, and reads no further")
{
    constexpr auto kFarthest = std::numeric_limits<std::int32_t>::max ();
    ZNullStream stream;
    CHECK (stream.Write (nullptr, 10) == 10);
    CHECK (stream.Seek (4, kSeekFromStart) == 4);
    stream.Read (nullptr, 100);
    CHECK (stream.Tell () == 10);
    stream.Write (nullptr, kFarthest - 4);
    CHECK (stream.GetSize () == kFarthest);
}

TEST_CASE ("ZStream: a line ends at the earliest of all terminators, and is written with CR LF")
{
    std::array<char, 40> memory{};
    ZMemoryStream stream (memory.data (), 40);
    CHECK (stream.WriteLine ("one", 0) == 3);
    CHECK (stream.WriteLine ("two\rk=v,w\n\nlast and no more", 15) == 15);
    stream.Seek (0, kSeekFromStart);
    for (const std::string expected : { "one", "two", "k", "v", "w", "", "last", "" })
    {
        std::array<char, 33> line{};
        CHECK (stream.ReadLine (line.data (), 32, ",=") == static_cast<std::int32_t> (expected.size ()));
        CHECK (line.data () == expected);
    }
}
