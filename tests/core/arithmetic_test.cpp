#include "platform/arithmetic.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace conmuta {
namespace {

template <class T>
class StoredWidth : public testing::Test {};

using Widths = testing::Types<std::uint8_t, std::int16_t, std::int32_t, std::uint32_t>;
TYPED_TEST_SUITE(StoredWidth, Widths);

TYPED_TEST(StoredWidth, NarrowKeepsWhatFitsAndRaisesBeyond) {
  constexpr std::int64_t kLowest = std::numeric_limits<TypeParam>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<TypeParam>::max();
  EXPECT_EQ(Narrow<TypeParam>(kLowest), kLowest);
  EXPECT_EQ(Narrow<TypeParam>(kHighest), kHighest);
  EXPECT_THROW(Narrow<TypeParam>(kLowest - 1), OverflowError);
  EXPECT_THROW(Narrow<TypeParam>(kHighest + 1), OverflowError);
  EXPECT_THROW(Narrow<TypeParam>(std::numeric_limits<std::int64_t>::min()), OverflowError);
  EXPECT_THROW(Narrow<TypeParam>(std::numeric_limits<std::uint64_t>::max()), OverflowError);
}

TEST(Errors, SayWhatTheyAre) {
  EXPECT_STREQ(OverflowError().what(), "overflow");
  EXPECT_STREQ(InvalidArgumentError().what(), "invalid argument");
  EXPECT_STREQ(ObjectNotSetError().what(), "object not set");
  EXPECT_STREQ(ConfigError(1, u"source", u"description").what(), "configuration error");
}

}  // namespace
}  // namespace conmuta
