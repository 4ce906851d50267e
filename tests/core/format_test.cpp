// Values lined up in columns.
#include "platform/format.h"

#include <gtest/gtest.h>

namespace conmuta {
namespace {

TEST(AlignRight, FillsOnTheLeft) {
  EXPECT_EQ(AlignRight(u"", 3), u"   ");
  EXPECT_EQ(AlignRight(u"7", 3), u"  7");
  EXPECT_EQ(AlignRight(u"777", 3), u"777");
  EXPECT_EQ(AlignRight(u"7", 3, u'.'), u"..7");
  EXPECT_EQ(AlignRight(u"7", 0), u"7");
}

TEST(AlignLeft, FillsOnTheRight) {
  EXPECT_EQ(AlignLeft(u"", 3, u'.'), u"...");
  EXPECT_EQ(AlignLeft(u"a ", 3, u'.'), u"a .");
  EXPECT_EQ(AlignLeft(u"abc", 3, u'.'), u"abc");
}

TEST(Alignment, KeepsLongerTextsWhole) {
  EXPECT_EQ(AlignRight(u"12345", 4), u"12345");
  EXPECT_EQ(AlignLeft(Text(60, u'd'), 60, u'.'), Text(60, u'd'));
  EXPECT_EQ(AlignLeft(Text(75, u'd'), 60, u'.'), Text(75, u'd'));
}

TEST(PaddedNumber, HasAtLeastThatManyDigits) {
  EXPECT_EQ(PaddedNumber(0, 2), u"00");
  EXPECT_EQ(PaddedNumber(1, 2), u"01");
  EXPECT_EQ(PaddedNumber(10, 2), u"10");
  EXPECT_EQ(PaddedNumber(100, 2), u"100");
  EXPECT_EQ(PaddedNumber(100, 4), u"0100");
}

}  // namespace
}  // namespace conmuta
