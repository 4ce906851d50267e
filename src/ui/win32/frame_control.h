// A frame with a caption around other controls: a group box that paints all of its area, so that
// nothing is left of what was there before, and shortens a caption that has no room.
#pragma once

#include <windows.h>

namespace conmuta::win32 {

// Makes one of a group box. It lies below its siblings.
void MakeFrame(HWND group_box);

}  // namespace conmuta::win32
