// A wiring in words: what the picture shows, for those who read or copy it.
#pragma once

#include <span>

#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

// The pins at the other end of a pin's wires, as a mask and as "4, 6".
WiringMask FarEnds(emPuertoSerial pair, std::span<const WiringMask> table, Pin pin);
Text PinList(WiringMask pins);

// What a computer calls the pin: "TXD". Empty for one that serial lines do not use; of the switch's
// side it is not known whether it is wired as a modem or as a terminal.
TextView SignalName(emPuertoSerial pair, Pin pin);

// "Computadora 4 (DTR): 1, 6"
Text DescribePin(emPuertoSerial pair, std::span<const WiringMask> table, Pin pin);

// A line for each wired left pin: "4 - 1, 6".
Text WiringList(emPuertoSerial pair, std::span<const WiringMask> table);

}  // namespace conmuta
