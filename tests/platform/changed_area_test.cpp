#include "changed_area.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <random>
#include <vector>

using namespace tessaly;

TEST_CASE ("ChangedArea: its rectangles cover all that was added and never meet")
{
    std::mt19937 random (1);
    std::uniform_int_distribution<std::int32_t> place (0, 500);
    std::uniform_int_distribution<std::int32_t> length (0, 40); // 0: adds nothing
    for (int round = 0; round < 50; ++round)
    {
        ChangedArea area;
        std::vector<ZRect> added;
        for (int i = 0; i < 40; ++i)
        {
            const auto x = place (random);
            const auto y = place (random);
            added.push_back ({ x, y, x + length (random), y + length (random) });
            area.Add (added.back ());
        }
        const auto rects = area.Rects ();
        CHECK (rects.size () <= ChangedArea::kMost);
        for (const auto& rect : added)
            CHECK ((rect.IsEmpty () ||
                    std::ranges::any_of (
                        rects,
                        [&] (const ZRect& r) {
                            return r.Contains (rect.TopLeft ()) && r.Contains (rect.BottomRight () - ZPoint{ 1, 1 });
                        })));
        for (std::size_t i = 0; i < rects.size (); ++i)
            for (std::size_t j = i + 1; j < rects.size (); ++j)
                CHECK_FALSE (rects[i].Overlaps (rects[j]));
    }
}

TEST_CASE ("ChangedArea: what lies apart stays apart")
{
    ChangedArea area;
    area.Add ({ 0, 0, 5, 5 });
    area.Add ({ 100, 100, 105, 105 });
    area.Add ({ 2, 2, 8, 3 });
    REQUIRE (area.Rects ().size () == 2);
    CHECK (std::ranges::count (area.Rects (), ZRect{ 0, 0, 8, 5 }) == 1);
}
