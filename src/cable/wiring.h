// The wiring of the serial cable: which pin of the computer's connector goes to which of the
// switch's, for each of the four connector pairs.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "cable/connector_pair.h"

namespace conmuta {

inline constexpr int kConnectorPairs = 4;

constexpr bool IsConnectorPair(emPuertoSerial pair) {
  return pair >= emPuertoSerialDB9DB9 && pair <= emPuertoSerialDB25DB25;
}

// Pins of the left (computer side) and right (switch side) connector. Every code but the two that
// begin (or end) with a DB9 counts as a DB25; hosts rely on that for codes that are no pair, too.
constexpr int LeftPins(emPuertoSerial pair) {
  return pair == emPuertoSerialDB9DB9 || pair == emPuertoSerialDB9DB25 ? 9 : 25;
}
constexpr int RightPins(emPuertoSerial pair) {
  return pair == emPuertoSerialDB9DB9 || pair == emPuertoSerialDB25DB9 ? 9 : 25;
}

// One mask for each left pin: bit k-1 is set when it is wired to right pin k. Entry 0 belongs to
// no pin; files carry it, so it is kept.
using WiringMask = std::int32_t;

constexpr WiringMask PinMask(int right_pin) {
  return WiringMask{1} << (right_pin - 1);
}

constexpr bool IsWired(std::span<const WiringMask> table, int left_pin, int right_pin) {
  return (table[static_cast<std::size_t>(left_pin)] & PinMask(right_pin)) != 0;
}

// Sets or cuts one wire; false when it was so already.
constexpr bool SetWired(std::span<WiringMask> table, int left_pin, int right_pin, bool wired) {
  WiringMask& mask = table[static_cast<std::size_t>(left_pin)];
  const WiringMask changed = wired ? mask | PinMask(right_pin) : mask & ~PinMask(right_pin);
  return std::exchange(mask, changed) != changed;
}

// The side of the computer and that of the switch.
enum class Side { kLeft, kRight };

constexpr int PinsOf(emPuertoSerial pair, Side side) {
  return side == Side::kLeft ? LeftPins(pair) : RightPins(pair);
}

// One pin of either connector.
struct Pin {
  Side side = Side::kLeft;
  int number = 0;

  bool operator==(const Pin&) const = default;
};

// Whether a configuration keeps the wires of that right pin: of pair DB9-DB25 it takes back the
// pins 1 to 9 only.
constexpr bool IsKept(emPuertoSerial pair, int right_pin) {
  return pair != emPuertoSerialDB9DB25 || right_pin <= 9;
}

class Wiring {
 public:
  // The table of a pair, indexed by left pin from 0. The pair must be one of the four.
  constexpr std::span<WiringMask> Table(emPuertoSerial pair) {
    return std::span(masks_[Row(pair)]).first(Entries(pair));
  }
  constexpr std::span<const WiringMask> Table(emPuertoSerial pair) const {
    return std::span(masks_[Row(pair)]).first(Entries(pair));
  }

  // Unwires every pin; entry 0 of each table stays.
  void Clear() {
    for (auto& table : masks_) std::fill(table.begin() + 1, table.end(), 0);
  }

  bool operator==(const Wiring&) const = default;

 private:
  static constexpr std::size_t Row(emPuertoSerial pair) {
    return static_cast<std::size_t>(pair - emPuertoSerialDB9DB9);
  }
  static constexpr std::size_t Entries(emPuertoSerial pair) {
    return static_cast<std::size_t>(LeftPins(pair)) + 1;
  }

  std::array<std::array<WiringMask, 26>, kConnectorPairs> masks_{};
};

}  // namespace conmuta
