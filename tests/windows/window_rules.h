// What holds for every window, whatever its size, its font and the resolution.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace conmuta::test {

// What a person would find wrong with an open window of ours, one line each: texts that are cut,
// controls over each other or beyond the window, buttons at uneven distances, a Tab key that jumps
// about, buttons without a key of their own, the plain look of old systems, fonts that do not
// belong. `dpi` is the resolution that the window is shown at.
std::vector<std::string> FlawsOf(HWND window, UINT dpi);

// Controls over each other, beyond the window or without room.
std::vector<std::string> MisplacedOf(HWND window);

// The texts of labels, buttons and fields that their controls are too small for.
std::vector<std::string> ClippedTextsOf(HWND window);

// The colours of areas, not of edges, that are neither the system's nor the cables'. The window has
// to be seen whole.
std::vector<std::string> ForeignColorsOf(HWND window);

}  // namespace conmuta::test
