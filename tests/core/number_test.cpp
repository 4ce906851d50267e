#include "platform/number.h"

#include <gtest/gtest.h>

namespace conmuta {
namespace {

TEST(ReadWholeNumber, AcceptsBlanksSignAndPoint) {
  EXPECT_EQ(ReadWholeNumber(u"7"), 7);
  EXPECT_EQ(ReadWholeNumber(u"  0042  "), 42);
  EXPECT_EQ(ReadWholeNumber(u"-3"), -3);
  EXPECT_EQ(ReadWholeNumber(u"+3"), 3);
  EXPECT_EQ(ReadWholeNumber(u"1."), 1);
  EXPECT_EQ(ReadWholeNumber(u".5"), 0);
}

TEST(ReadWholeNumber, RejectsEverythingElse) {
  for (const TextView text : {u"", u" ", u".", u"-", u"- 3", u"3-", u"1,5", u"1e3", u"&H10", u"$1",
                              u"1.2.3", u"1 2", u"\t1", u"x", u"--1", u"+-1"}) {
    EXPECT_EQ(ReadWholeNumber(text), std::nullopt) << testing::PrintToString(Text(text));
  }
}

TEST(ReadWholeNumber, RoundsFractionsHalvesToEven) {
  EXPECT_EQ(ReadWholeNumber(u"0.5"), 0);
  EXPECT_EQ(ReadWholeNumber(u"1.5"), 2);
  EXPECT_EQ(ReadWholeNumber(u"2.5"), 2);
  EXPECT_EQ(ReadWholeNumber(u"2.75"), 3);
  EXPECT_EQ(ReadWholeNumber(u"2.50000000000000000000001"), 3);
  EXPECT_EQ(ReadWholeNumber(u"2.49999999999999999999999"), 2);
  EXPECT_EQ(ReadWholeNumber(u"-1.5"), -2);
  EXPECT_EQ(ReadWholeNumber(u"-0.5"), 0);
}

TEST(ReadWholeNumber, BeyondTheWidthRaisesHoweverLongTheText) {
  EXPECT_EQ(ReadWholeNumberAs<std::int16_t>(u"32767"), 32767);
  EXPECT_THROW(ReadWholeNumberAs<std::int16_t>(u"32768"), OverflowError);
  EXPECT_EQ(ReadWholeNumberAs<std::int32_t>(u"2147483647.4"), 2147483647);
  EXPECT_THROW(ReadWholeNumberAs<std::int32_t>(u"2147483647.5"), OverflowError);
  EXPECT_THROW(ReadWholeNumberAs<std::int32_t>(Text(400, u'9')), OverflowError);
  EXPECT_THROW(ReadWholeNumberAs<std::int32_t>(u"-" + Text(400, u'9')), OverflowError);
  EXPECT_EQ(ReadWholeNumberAs<std::int32_t>(Text(400, u'0') + u"9"), 9);
}

TEST(IsExactly, TakesEveryFormOfTheNumber) {
  for (const TextView text : {u"1", u" 1 ", u"+1", u"01", u"1.", u"1.000"}) {
    EXPECT_TRUE(IsExactly(text, 1)) << testing::PrintToString(Text(text));
  }
  EXPECT_TRUE(IsExactly(u"-3.0", -3));
  EXPECT_TRUE(IsExactly(u".0", 0));
}

TEST(IsExactly, TakesNothingBesideIt) {
  for (const TextView text : {u"", u"x", u"1x", u"2", u"-1", u"1.4", u"0.6", u"1.5", u"0.5",
                              u"0.99999999999999999999999", u"1.00000000000000000000001"}) {
    EXPECT_FALSE(IsExactly(text, 1)) << testing::PrintToString(Text(text));
  }
  EXPECT_FALSE(IsExactly(Text(400, u'1'), 1));
}

}  // namespace
}  // namespace conmuta
