#pragma once

#include "chance.h"
#include "strip_life.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tessaly::soak
{

using StateBytes = std::vector<std::uint8_t>;

inline constexpr std::size_t kStateBytes = 812;
inline constexpr std::size_t kStoredValues = 22;

/// @throws Fault when the component gives no state, or one that CheckReadable finds fault with
StateBytes Save (StripLife& life);

/// Hands a state to the component, then to the controller, as a host does. A damaged one may be refused.
void Load (StripLife& life, const StateBytes& state);

/// The values of the block at a state's beginning, normalized.
std::array<float, kStoredValues> StoredValues (const StateBytes& state);

/// @throws Fault unless it is kStateBytes long, with the header, the tree after the values, and every value from 0 to 1
void CheckReadable (const StateBytes& state);

/// @throws Fault unless `after`, saved after a load of `before`, is the same. "Bypass" may have gone to the end of its
/// range, since the two section bypasses settle it.
void CheckRestored (const StateBytes& before, const StateBytes& after);

/// The state with a key-point set of its own: a good state, whatever the steps.
StateBytes WithAnotherSet (StateBytes state, Chance& chance);

/// Bytes flipped, numbers replaced by wild ones, an end cut off or added, key points at random, or no state at all.
StateBytes Damaged (StateBytes state, Chance& chance);

} // namespace tessaly::soak
