// What the diagram of a cable offers while it may be edited.
#pragma once

#include <windows.h>

#include "cable/frmPuertos.h"

namespace conmuta::win32 {

// The cables that fit the pair, the removal of all wires, and Undo. `place` is what WM_CONTEXTMENU
// tells: where the mouse is, or nowhere for the menu key.
void ShowCableMenu(HWND diagram, LPARAM place, frmPuertos& editor);

}  // namespace conmuta::win32
