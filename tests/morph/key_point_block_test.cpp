#include "channel_strip_effect.h"
#include "key_point_block.h"
#include "key_point_stream.h"
#include "state_bytes.h"
#include <array>
#include <doctest/doctest.h>
#include <numeric>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// Row r, column c hold 100 r + c; what is read past holds rubbish.
Bytes Block ()
{
    Bytes block = "KPRD" + Bytes (28, '\xEE');
    for (std::uint64_t row = 0; row < 9; ++row)
    {
        for (std::uint64_t column = 0; column < 17; ++column)
            block += Big (100 * row + column, 2);
        block += Bytes (6, '\xEE');
    }
    return block + Bytes (120, '\xEE');
}

std::int32_t SizeOf (const Bytes& bytes)
{
    return static_cast<std::int32_t> (bytes.size ());
}

} // namespace

TEST_CASE ("KPDStream: hands each read over in reversed order, up to the end")
{
    const Bytes bytes = "\x01\x2C"
                        "abcdef" +
                        Bytes (300, 'x');
    KPDStream stream (bytes.data (), SizeOf (bytes));
    std::int16_t step = 0;
    CHECK (stream.Read (&step, 2) == 2);
    CHECK (step == 300);
    std::array<char, 512> read{};
    CHECK (stream.Read (read.data (), 4) == 4);
    CHECK (std::string (read.data ()) == "dcba");
    CHECK (stream.Read (read.data (), 0) == 0);
    CHECK (stream.Read (read.data (), 512) == 256);
    CHECK (stream.Read (read.data (), 512) == 46);
    CHECK (stream.Read (read.data (), 1) == 0);
}

TEST_CASE ("A key-point file fills the rows 0 to 8 and leaves row 9")
{
    ZChannel_StripEffect effect (nullptr);
    const auto block = Block ();
    REQUIRE (block.size () == 512);
    effect.LoadKeyPointBlock (block.data (), 512);
    for (std::uint32_t row = 0; row < 9; ++row)
        for (std::uint32_t column = 0; column < 17; ++column)
            CHECK (effect.KeyPointStep (row, column) == static_cast<std::int32_t> (100 * row + column));
    CHECK (effect.KeyPointStep (9, 0) == -1);

    auto emptied = block;
    emptied.replace (32 + 40 * 4 + 6, 2, "\xFF\xFF");
    effect.LoadKeyPointBlock (emptied.data (), 512);
    CHECK_FALSE (effect.HasKeyPoint (4));
    CHECK (effect.HasKeyPoint (5));
}

TEST_CASE ("A block of another size or with another beginning is refused with the reason and changes nothing")
{
    ZChannel_StripEffect effect (nullptr);
    const auto block = Block ();
    CHECK (KeyPointBlockFault (block.data (), 512) == nullptr);
    const auto isRefused = [&effect] (const Bytes& bytes)
    {
        const Bytes held = bytes; // of just that size, so that a sanitizer sees a read beyond it
        effect.LoadKeyPointBlock (held.data (), SizeOf (held));
        return effect.KeyPointStep (0, 0) == 184 && KeyPointBlockFault (held.data (), SizeOf (held)) != nullptr;
    };
    for (const std::size_t size : { 0u, 1u, 3u, 4u, 511u })
        CHECK (isRefused (block.substr (0, size)));
    CHECK (isRefused (block + 'x'));
    CHECK (isRefused ("DRPK" + block.substr (4)));
    CHECK (KeyPointBlockFault (nullptr, 512) != nullptr);
    CHECK (KeyPointBlockFault (block.data (), -512) != nullptr);
}

TEST_CASE ("The name of the set is cut at a whole character and holds nothing of the name before")
{
    ZChannel_StripEffect effect (nullptr);
    CHECK (std::string (effect.GetKeyPointName ()) == "01 Basic");
    const std::string fits (255, 'a');
    effect.SetKeyPointName (fits.c_str ());
    CHECK (effect.GetKeyPointName () == fits);
    const std::string before (253, 'b');
    effect.SetKeyPointName ((before + "\xE2\x82\xAC").c_str ()); // a Euro sign, one byte of it too many
    CHECK (effect.GetKeyPointName () == before);
    effect.SetKeyPointName ("short");
    CHECK (std::string (effect.GetKeyPointName () + 6, 250) == std::string (250, '\0'));
}
