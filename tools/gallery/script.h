#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tessaly::gallery
{

class GalleryWindow;

/// What plays when no other script is named: every control in use.
extern const std::string_view kBuiltInScript;

/// Plays a script of input into a window, an order a line; one that begins with '#' is a comment. Numbers are pixels at
/// scale 1. Places have the names that exhibits.h gives them, and a point in one counts from its middle.
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
void Play (std::string_view script, GalleryWindow& window, const std::function<void (const std::string&)>& onSnap);

} // namespace tessaly::gallery
