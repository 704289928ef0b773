#include "channel_strip_effect.h"
#include "state_bytes.h"
#include <doctest/doctest.h>
#include <vector>

using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// Row r, column c hold 100 r + c; what is read past holds rubbish.
Bytes File ()
{
    Bytes file = "KPRD" + Bytes (28, '\xEE');
    for (std::uint64_t row = 0; row < 9; ++row)
    {
        for (std::uint64_t column = 0; column < 17; ++column)
            file += Big (100 * row + column, 2);
        file += Bytes (6, '\xEE');
    }
    return file + Bytes (120, '\xEE');
}

} // namespace

TEST_CASE ("A key-point file fills the rows 0 to 8 and leaves row 9, one with a fault changes nothing")
{
    ZChannel_StripEffect effect (nullptr);
    const auto load = [&effect] (const Bytes& bytes)
    {
        const std::vector<char> held (bytes.begin (), bytes.end ()); // of just that size, for the sanitizers
        effect.LoadKeyPointBlock (held.data (), static_cast<std::int32_t> (held.size ()));
    };
    const auto file = File ();
    for (const std::size_t size : { 0u, 1u, 3u, 4u, 511u })
        load (file.substr (0, size));
    load (file + 'x');
    load ("DRPK" + file.substr (4));
    effect.LoadKeyPointBlock (nullptr, 512);
    effect.LoadKeyPointBlock (file.data (), -512);
    CHECK (effect.KeyPointStep (0, 0) == 184);

    load (file);
    for (std::uint32_t row = 0; row < 9; ++row)
        for (std::uint32_t column = 0; column < 17; ++column)
            CHECK (effect.KeyPointStep (row, column) == static_cast<std::int32_t> (100 * row + column));
    CHECK (effect.KeyPointStep (9, 0) == -1);
}
