#include "panel.h"
#include "set_file.h"
#include "state_bytes.h"
#include "state_chunk.h"
#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("keypoints: a state without a set takes one into the built-in table, whose last row is empty")
{
    constexpr std::size_t kLastRow = 92 + 284 + 9 * 34; // in a state: behind its head, the set's name and nine rows
    const std::vector<float> values (22, 0.0f);
    const Bytes state = State (values, "").substr (0, 92) + Tree (Format () + Chunk ("PRM ", Values (values)));
    const auto changed = keypoints::WithKeyPoints (std::as_bytes (std::span (state)), "one", keypoints::EmptySet (),
                                                   keypoints::Panel ());
    REQUIRE (changed.size () == kStateBytes);
    CHECK (changed[kLastRow] == std::byte{ 0xFF });
    CHECK (changed[kLastRow + 33] == std::byte{ 0xFF });
}
