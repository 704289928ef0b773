#pragma once

// The system's own headers, once and without the macros that take names of ours. Only files of this folder, and of the
// adapter's folder for this system, may include it; no header that others see may.

#undef WIN32_LEAN_AND_MEAN // GDI+ wants what it leaves out
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>

#include <objidl.h> // after the former and before the next

#include <gdiplus.h>

#undef DrawText
