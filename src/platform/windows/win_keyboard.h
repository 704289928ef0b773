#pragma once

#include "native_key.h"
#include "windows_api.h"

namespace tessaly
{

/// The key that a WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN or WM_SYSKEYUP message tells of, with the character that it types
/// on the user's keyboard. Dead keys and keys that type more than one character have none.
NativeKey KeyOfMessage (WPARAM wParam, LPARAM lParam);

/// Mask of Modifier, as the keys stood when the present message was sent.
std::int32_t ModifiersOfMessage ();

} // namespace tessaly
