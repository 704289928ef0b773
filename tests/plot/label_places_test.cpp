#include "label_places.h"
#include "ticks.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly::plot;

TEST_CASE ("Labels give way to each other, stay in their order and within the diagram")
{
    using Places = std::vector<double>;
    CHECK (LabelPlaces ({ 50.0, 10.0 }, 10.0, 0.0, 100.0) == Places{ 50.0, 10.0 }); // room enough
    CHECK (LabelPlaces ({ 50.0, 50.0, 50.0 }, 10.0, 0.0, 100.0) == Places{ 40.0, 50.0, 60.0 });
    CHECK (LabelPlaces ({ 99.0, 100.0 }, 10.0, 0.0, 100.0) == Places{ 90.0, 100.0 });
    CHECK (LabelPlaces ({ 1.0, 2.0, 3.0 }, 10.0, 0.0, 100.0) == Places{ 0.0, 10.0, 20.0 });
    CHECK (LabelPlaces ({ 5.0, 5.0, 5.0 }, 10.0, 0.0, 10.0) == Places{ 0.0, 5.0, 10.0 }); // no room
    CHECK (LabelPlaces ({}, 10.0, 0.0, 100.0).empty ());
}

TEST_CASE ("Axes have few texts, all different, whatever their length")
{
    CHECK (StepTicks (-12.0, 12.0, 12.0).front ().text == "\u221212");
    for (const double seconds : { 0.0003, 0.02, 1.0, 59.0, 61.0, 600.0, 7300.0, 90000.0, 4e6 })
    {
        auto ticks = TimeTicks (seconds);
        CAPTURE (seconds);
        CHECK (ticks.size () >= 3);
        CHECK (ticks.size () <= 9);
        std::ranges::sort (ticks, {}, &Tick::text);
        CHECK (std::ranges::adjacent_find (ticks, {}, &Tick::text) == ticks.end ());
    }
    CHECK (TimeTicks (90.0)[1].text == "0:15");
}
