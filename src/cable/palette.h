// Colours of wires. Pins of a connector's outer row have light ones, those of its inner row, which
// stand between them, dark ones: side by side they differ in lightness, which everybody sees. Each
// stands out from the white ground.
#pragma once

#include <cstdint>

#include "cable/wiring.h"

namespace conmuta {

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

// The contrast of two colours as accessibility rules measure it: 1 to 21.
double Contrast(Color one, Color other);

// Pins of the outer row of a connector come first.
constexpr int OuterRow(int pins) {
  return (pins + 1) / 2;
}

// Of a left pin's wires, for a connector of so many pins.
Color ColorOfPin(int pins, int pin);

inline constexpr Color kWhite = {255, 255, 255};
inline constexpr Color kInk = {28, 33, 40};
inline constexpr Color kMuted = {118, 125, 134};  // what is not wired, or not kept
inline constexpr Color kThin = {136, 143, 151};   // outlines and leaders

// Ink or white, whichever reads better on that ground.
Color TextOn(Color ground);

}  // namespace conmuta
