#include "taller/item_colors.h"

#include <gtest/gtest.h>

namespace conmuta::taller {
namespace {

TEST(ItemColors, TheInkIsReadOnAllAndNeighboursDifferInLightness) {
  const auto grounds = ItemGrounds();
  for (std::size_t i = 0; i < grounds.size(); ++i) {
    EXPECT_GE(Contrast(grounds[i], kInk), 7) << i;
    EXPECT_GE(Contrast(grounds[i], ItemGround(i + 1)), 1.4) << i;
  }
}

}  // namespace
}  // namespace conmuta::taller
