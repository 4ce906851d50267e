// Cables that most installations use.
#pragma once

#include <array>
#include <span>

#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

struct UsualCable {
  struct Wire {
    int left = 0;
    int right = 0;
  };

  emPuertoSerial pair;
  TextView name;
  std::array<Wire, 9> wires;  // those with a left pin of 0 are none
};

// All of them; each fits the pair that it names.
std::span<const UsualCable> UsualCables();

}  // namespace conmuta
