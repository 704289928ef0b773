#pragma once

#include "pluginterfaces/base/funknown.h"

/// Ardour, measured at 7.3, and nothing in this folder happens in any other host:
///
/// - It hands automation to `process` as points, and tells the controller of a value only when something of its own
///   reads that parameter: late or never, and never to the second copy of a plug-in on a stereo track. The points of
///   real-time blocks are therefore delivered late, from a thread of our own (late_points.h, late_delivery.h).
/// - It sends every lane's value in every block, in the order of the ids. Values that change nothing are passed over,
///   and "Morph" goes first (late_points.h).
/// - It exports in the offline mode, plays and captures in the real-time one; and it bounces in that, too, faster than
///   the clock (block_pace.h).
/// - While it restores a session it sets values one by one and keeps what we answer by edits for later, when it wins
///   over the state. Until the first activation moved values are told by kParamValuesChanged instead. The values come as
///   points, too, in the first block, where they are dropped (late_points.h).
/// - It shows the window of the first copy alone, and tells its controller of the others (copy_handler.h).
///
/// This can go when Ardour tells the controllers of all copies of a plug-in of each value, in order and without a
/// window, and keeps no edits from before the state.
namespace tessaly::ardour
{

/// @param context  the host's, may be null
bool IsArdour (Steinberg::FUnknown* context);

} // namespace tessaly::ardour
