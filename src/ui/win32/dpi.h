// The resolution of a window's screen. A DLL takes it as its host has set it up: older systems know
// one for all screens, and their functions are looked up at run time.
#pragma once

#include <windows.h>

namespace conmuta::win32 {

UINT DpiOf(HWND window);
UINT SystemDpi();

// The part of its screen that a window may take: no taskbar lies over it.
RECT WorkAreaOf(HWND window);

// The user's message font, for a resolution.
LOGFONTW MessageFontAt(UINT dpi);

}  // namespace conmuta::win32
