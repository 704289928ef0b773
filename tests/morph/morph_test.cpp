#include "morph.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

KeyPointSet Without (std::initializer_list<std::size_t> rows)
{
    auto set = builtInKeyPoints;
    for (const auto row : rows)
        set.rows[row][row % kKeyPointColumns] = kEmptyCell; // one cell empties a row
    return set;
}

} // namespace

TEST_CASE ("Morph: over empty rows the steps lie on a line between the filled ones and are truncated")
{
    const auto set = Without ({ 3, 4 });
    CHECK (MorphedSteps (set, 52).value ()[0] == 171); // 147 + 7 / 15 * (200 - 147) = 171.73
    CHECK (MorphedSteps (set, 59).value ()[0] == 196); // 147 + 14 / 15 * 53 = 196.47
    CHECK (MorphedSteps (set, 60).value ()[0] == 147); // back on the lower row: the fraction is of the position's cell
}

TEST_CASE ("Morph: where one side is empty it takes the other, and with no row at all it does nothing")
{
    const auto onlyFour = Without ({ 0, 1, 2, 3, 5, 6, 7, 8 });
    const auto none = Without ({ 0, 1, 2, 3, 4, 5, 6, 7, 8 });
    auto onlyTenth = none; // a stored state may fill the tenth row
    onlyTenth.rows[9] = builtInKeyPoints.rows[2];
    for (float position = 0; position <= 120; position += 1)
    {
        REQUIRE (MorphedSteps (onlyFour, position) == builtInKeyPoints.rows[4]);
        REQUIRE (MorphedSteps (onlyTenth, position) == builtInKeyPoints.rows[2]);
        REQUIRE_FALSE (MorphedSteps (none, position));
    }
}
