#include "taller/item_colors.h"

#include <array>

namespace conmuta::taller {
namespace {

// A light one, a darker one, and so on around the circle of hues.
constexpr std::array<Color, 8> kGrounds = {{{255, 240, 170},
                                            {110, 180, 240},
                                            {205, 245, 200},
                                            {240, 150, 130},
                                            {215, 235, 255},
                                            {120, 195, 120},
                                            {255, 225, 240},
                                            {205, 160, 235}}};

}  // namespace

std::span<const Color> ItemGrounds() {
  return kGrounds;
}

Color ItemGround(std::size_t n) {
  return kGrounds[n % kGrounds.size()];
}

}  // namespace conmuta::taller
