// The connectors at both ends of a serial cable.
#pragma once

#include <cstdint>

namespace conmuta {

// Connector pairs of the serial cable: computer side first, switch side second.
enum emPuertoSerial : std::int32_t {
  emNoPuerto = 0,
  emPuertoSerialDB9DB9 = 1,
  emPuertoSerialDB9DB25 = 2,
  emPuertoSerialDB25DB9 = 3,
  emPuertoSerialDB25DB25 = 4,
};

}  // namespace conmuta
