#pragma once

#include "chance.h"
#include "hand_run_loop.h"
#include "saved_state.h"
#include "strip_life.h"
#include "tally.h"

#include <vector>

namespace tessaly::soak
{

/// What the acts of a run share.
struct Scene
{
    Chance& chance;                ///< not owned: the run's
    Tally& tally;                  ///< not owned: the run's
    HandRunLoop& loop;             ///< not owned: the run's
    std::vector<StateBytes> saved; ///< by any instance, for any other
};

/// Does one thing to an instance that a host may do, and looks at what comes of it.
/// @throws Fault when that is wrong
void Act (StripLife& life, Scene& scene);

} // namespace tessaly::soak
