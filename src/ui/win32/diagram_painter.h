// Paints the shapes of a cable diagram.
#pragma once

#include <windows.h>

#include "cable/diagram.h"

namespace conmuta::win32 {

struct DiagramPlace {
  SIZE size;        // of the view, in pixels
  double scale;     // pixels to the diagram's unit
  double scrolled;  // units of the diagram above the view
};

// `loose` is a wire in the making, or null.
void PaintDiagram(HDC target, const DiagramPlace& place, const Diagram& diagram,
                  const WireShape* loose);

}  // namespace conmuta::win32
