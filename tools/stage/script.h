#pragma once

#include "geometry.h"
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tessaly::stage
{

class OffscreenWindow;

/// What a script plays into: a window, and what only the program around it knows.
class ScriptStage
{
public:
    virtual ~ScriptStage () = default;

    virtual OffscreenWindow& Window () = 0;
    virtual std::optional<ZRect> PlaceOf (std::string_view name) const = 0; ///< nothing: there is no such place
    virtual void SetLevel (std::int32_t meter, float level) = 0;            ///< 0 to kScriptMeters - 1; 0 to 1

    /// As a host's automation. @throws ScriptError for a parameter that is not there, or a value out of its range
    virtual void SetParameter (std::string_view name, double plain) = 0;
};

inline constexpr std::int32_t kScriptMeters = 2;

/// Plays a script of input into a window, an order a line; one that begins with '#' is a comment. Numbers are pixels at
/// scale 1. Places have the names that the stage gives them, and a point in one counts from its middle.
///
///     point PLACE [X Y]           the pointer goes there; with a button held it drags
///     press [right] [MODIFIER...] the left button, or the right one
///     drag X Y [MODIFIER...]      the pointer goes as far from where it is, in steps of a few pixels, button held
///     release
///     click PLACE [X Y] [MODIFIER...]
///     double PLACE                a double click
///     wheel NOTCHES
///     key NAME [MODIFIER...]      return, escape, left, up ..., or a single character
///     type TEXT                   the rest of the line
///     idle MILLISECONDS
///     level METER VALUE           what a meter measures from now on, 0 to 1
///     set PARAMETER VALUE         as a host's automation: a plain value
///     snap NAME                   calls onSnap
///
/// Modifiers are shift, control, alt and command.
/// @throws ScriptError, with the line's number, for an order that can't be read or done; what came before is done
void Play (std::string_view script, ScriptStage& stage, const std::function<void (const std::string&)>& onSnap);

} // namespace tessaly::stage
