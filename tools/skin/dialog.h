#pragma once

#include "picture.h"

namespace tessaly::skin
{

// The file dialog, 232 x 269, and what lies in it. Keys: row 0 up, row 1 pressed.

void DrawDialog (Picture& picture);
void DrawOkKey (Picture& picture, std::int32_t column, std::int32_t row); ///< rows: nothing chosen, ready, pressed
void DrawCancelKey (Picture& picture, std::int32_t column, std::int32_t row);
void DrawToTopKey (Picture& picture, std::int32_t column, std::int32_t row);
void DrawToBottomKey (Picture& picture, std::int32_t column, std::int32_t row);
void DrawLineUpKey (Picture& picture, std::int32_t column, std::int32_t row);
void DrawLineDownKey (Picture& picture, std::int32_t column, std::int32_t row);
void DrawFolder (Picture& picture, std::int32_t column, std::int32_t row); ///< rows: closed, open

} // namespace tessaly::skin
