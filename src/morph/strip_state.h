#pragma once

#include "channel_strip_parameters.h"
#include "key_points.h"
#include "text_buffer.h"
#include <array>
#include <cstdint>

namespace tessaly
{

class ZStream;

/// What a stored state holds of a strip, as a tree of chunks. All numbers have their lowest byte first:
///
///     CHST    the strip
///       FINF  int32, the format: 2
///       KPD   name of the key-point set, 256 bytes; the set, 10 rows of 17 int16
///       PRM   the normalized values of the parameters, float32
///
/// An id has four letters, the missing one a blank, and a size is an int32. There is a wide form, which is only read,
/// with ids, sizes and format of eight bytes.
struct StripState
{
    std::array<float, kStripParameterCount> values{}; ///< normalized, as stored: any bytes
    ZText keyPointName{};                             ///< all 256 bytes are stored
    KeyPointSet keyPoints{};
};

inline constexpr std::int32_t kStripTreeBytes = 720;

/// Writes the narrow form, kStripTreeBytes. The stream must be able to go back and write over what it has.
void WriteStripTree (ZStream& stream, const StripState& state);

/// Reads either form from where the stream stands. Chunks of other ids are passed over; what has no chunk, or whose
/// chunk the stream cuts off, stays in `state` as it was. Bounded work and memory for any bytes whatever.
/// @throws ChStripFileBinException on a fault; what came before it is in `state` by then
void ReadStripTree (ZStream& stream, StripState& state);

} // namespace tessaly
