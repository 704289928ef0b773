#pragma once

#include "key_points.h"
#include "panel.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tessaly::keypoints
{

// Key points out of the strip's stored states and back into them.

/// Whether a state is cut off, at any byte, or has no tree of chunks; the plug-in takes what there is without a word.
/// @return empty for a whole state; else what is missing
std::string StateDamage (std::span<const std::byte> chunk);

/// The sound that a state holds, edits of the morphed parameters included, as a key point.
/// @throws SetError when the bytes hold no whole set of values
KeyPointRow CapturedRow (std::span<const std::byte> chunk, const Panel& panel);

/// The same for a preset file or a raw state chunk. @throws SetError, HostError
KeyPointRow CapturedRow (const std::filesystem::path& file, const Panel& panel);

/// The state as it is after the user has chosen another set: with its key points and name, and the morphed parameters
/// as the set has them at the present position of the morph. Everything else, row 9 included, stays.
/// @param name  of the set; cut at a whole character where it is too long
/// @throws SetError when the state is damaged
std::vector<std::byte> WithKeyPoints (std::span<const std::byte> chunk, const std::string& name,
                                      const KeyPointSet& table, const Panel& panel);

} // namespace tessaly::keypoints
