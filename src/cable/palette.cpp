#include "cable/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace conmuta {
namespace {

// All of one luminance in each row; hues next to each other are far apart on the circle.
constexpr std::array<Color, 13> kOuter = {{{240, 96, 76},
                                           {13, 164, 78},
                                           {203, 96, 242},
                                           {144, 149, 12},
                                           {18, 150, 222},
                                           {241, 87, 140},
                                           {19, 166, 13},
                                           {155, 122, 244},
                                           {203, 125, 16},
                                           {13, 160, 144},
                                           {240, 70, 207},
                                           {86, 161, 13},
                                           {111, 136, 243}}};
constexpr std::array<Color, 12> kInner = {{{12, 64, 87},
                                           {119, 17, 38},
                                           {10, 69, 28},
                                           {100, 17, 121},
                                           {49, 65, 9},
                                           {22, 47, 151},
                                           {102, 41, 15},
                                           {10, 68, 57},
                                           {112, 16, 84},
                                           {22, 69, 10},
                                           {66, 23, 164},
                                           {71, 59, 10}}};

double Linear(std::uint8_t part) {
  const double value = part / 255.0;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Color color) {
  return 0.2126 * Linear(color.red) + 0.7152 * Linear(color.green) + 0.0722 * Linear(color.blue);
}

}  // namespace

double Contrast(Color one, Color other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

Color ColorOfPin(int pins, int pin) {
  const int outer = OuterRow(pins);
  if (pin < 1 || pin > pins) return kMuted;
  return pin <= outer ? kOuter[static_cast<std::size_t>(pin - 1)]
                      : kInner[static_cast<std::size_t>(pin - outer - 1)];
}

Color TextOn(Color ground) {
  return Contrast(kInk, ground) >= Contrast(kWhite, ground) ? kInk : kWhite;
}

}  // namespace conmuta
