#include "morph.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

KeyPointTable Without (std::initializer_list<std::size_t> rows)
{
    auto table = builtInKeyPoints;
    for (const auto row : rows)
        table.rows[row][row % kKeyPointColumns] = kEmptyCell; // one cell empties a row
    return table;
}

std::int16_t StepAt (const KeyPointTable& table, float position, std::size_t parameter)
{
    const auto steps = MorphedSteps (table, position);
    REQUIRE (steps);
    return (*steps)[parameter - 1];
}

} // namespace

TEST_CASE ("Morph: between two key points the steps lie on a line and are truncated, over empty rows too")
{
    CHECK (StepAt (builtInKeyPoints, 7, 1) == 175);  // 184 + 7 / 15 * (165 - 184) = 175.13
    CHECK (StepAt (builtInKeyPoints, 33, 8) == 234); // 260 - 0.2 * 125 in doubles falls short of 235
    const auto table = Without ({ 3, 4 });
    CHECK (StepAt (table, 52, 1) == 171); // 147 + 7 / 15 * (200 - 147) = 171.73
    CHECK (StepAt (table, 59, 1) == 196); // 147 + 14 / 15 * 53 = 196.47
    CHECK (StepAt (table, 60, 1) == 147); // back on the lower row: the fraction is that of the position's own cell
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
