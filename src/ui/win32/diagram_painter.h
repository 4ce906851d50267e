// Paints the diagram of a cable.
#pragma once

#include <windows.h>

#include "cable/diagram_desk.h"

namespace conmuta::win32 {

// The part of the view that has to be painted, through a small buffer, strip by strip.
void PaintDiagram(HDC target, const RECT& part, const DiagramDesk& desk);

}  // namespace conmuta::win32
