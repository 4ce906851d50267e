// A cable's wiring as a picture.
#pragma once

#include <span>
#include <string>

#include "cable/wiring.h"

namespace conmuta::host {

// In characters: wired pins of the computer on the left, of the switch on the right. "┼" is two
// wires that cross, "┬" and the like one that forks.
std::string CableText(emPuertoSerial pair, std::span<const WiringMask> table);

// The picture of the cable editor as SVG.
std::string CableSvg(emPuertoSerial pair, std::span<const WiringMask> table);

}  // namespace conmuta::host
