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

TYPED_TEST(StoredWidth, SumAndProductNeverWrap) {
  constexpr TypeParam kLowest = std::numeric_limits<TypeParam>::min();
  constexpr TypeParam kHighest = std::numeric_limits<TypeParam>::max();
  constexpr TypeParam kOne = 1;
  constexpr TypeParam kTwo = 2;
  EXPECT_EQ(CheckedAdd(kLowest, kHighest), static_cast<TypeParam>(kLowest + kHighest));
  EXPECT_EQ(CheckedAdd(kHighest, TypeParam{0}), kHighest);
  EXPECT_THROW(CheckedAdd(kHighest, kOne), OverflowError);
  EXPECT_THROW(CheckedAdd(kHighest, kHighest), OverflowError);
  EXPECT_EQ(CheckedMultiply(kHighest, kOne), kHighest);
  EXPECT_EQ(CheckedMultiply(kHighest, TypeParam{0}), 0);
  EXPECT_THROW(CheckedMultiply(kHighest, kTwo), OverflowError);
  EXPECT_THROW(CheckedMultiply(kHighest, kHighest), OverflowError);
}

TEST(CheckedArithmetic, NegativeResultsNeverWrapEither) {
  constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
  EXPECT_EQ(CheckedAdd<std::int16_t>(-32767, -1), kLowest);
  EXPECT_THROW(CheckedAdd<std::int16_t>(kLowest, -1), OverflowError);
  EXPECT_EQ(CheckedMultiply<std::int16_t>(-16384, 2), kLowest);
  EXPECT_THROW(CheckedMultiply<std::int16_t>(kLowest, -1), OverflowError);
  EXPECT_THROW(CheckedMultiply<std::int16_t>(9, -3641), OverflowError);
}

TEST(CheckedArithmetic, TheFailureSaysWhatItIs) {
  EXPECT_STREQ(OverflowError().what(), "overflow");
  EXPECT_STREQ(InvalidArgumentError().what(), "invalid argument");
  EXPECT_STREQ(ObjectNotSetError().what(), "object not set");
  EXPECT_STREQ(ConfigError(1, u"source", u"description").what(), "configuration error");
}

}  // namespace
}  // namespace conmuta
