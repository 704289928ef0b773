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
///
/// In a stored project a head stands before the tree: four letters and the values of the first kStateHeadValues
/// parameters (ZVst3StateBlock). It has no size of its own, so that its length is frozen: a value more, and every reader
/// would take the tree's first bytes for it. A parameter that comes later is stored in "PRM " alone, whose size tells
/// how many values there are; the state of this version, with 22 in both, has 812 bytes. So a list that has grown is
/// recognized by a "PRM " that is longer, and needs no other format number: an older reader takes the values that it
/// knows, and a newer one gives what an old state does not have its default.
struct StripState
{
    std::array<float, kStripParameterCount> values{}; ///< normalized, as stored: any bytes
    ZText keyPointName{};                             ///< all 256 bytes are stored
    KeyPointSet keyPoints{};
};

/// The values that the head of a stored project holds, frozen; not the number of parameters, which may grow.
inline constexpr std::int32_t kStateHeadValues = 22;
static_assert (kStripParameterCount >= kStateHeadValues, "stored projects hold the first parameters for good");

/// All but the values: the headers of the four chunks, the format, name and set.
inline constexpr std::int32_t kStripTreeBytes = 4 * 8 + 4 + 256 + 10 * 17 * 2 + 4 * kStripParameterCount;

/// Writes the narrow form, kStripTreeBytes. The stream must be able to go back and write over what it has.
void WriteStripTree (ZStream& stream, const StripState& state);

/// Reads either form from where the stream stands. Chunks of other ids are passed over; what has no chunk, or whose
/// chunk the stream cuts off, stays in `state` as it was. Bounded work and memory for any bytes whatever.
/// @throws ChStripFileBinException on a fault; what came before it is in `state` by then
void ReadStripTree (ZStream& stream, StripState& state);

} // namespace tessaly
