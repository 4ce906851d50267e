#include "config/fixed_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace conmuta {
namespace {

using namespace std::string_literals;
using basConmuta::CadenaAFija;
using basConmuta::FijaACadena;

TEST(CadenaAFija, GivesExactlyTheWidth) {
  EXPECT_EQ(CadenaAFija(u"abc", 5), u"abc\0\0"s);
  EXPECT_EQ(CadenaAFija(u"abc", 3), u"abc");
  EXPECT_EQ(CadenaAFija(u"abc", 2), u"ab");
  EXPECT_EQ(CadenaAFija(u"abc", 1), u"a");
  EXPECT_EQ(CadenaAFija(u"", 2), u"\0\0"s);
  EXPECT_EQ(CadenaAFija(u"a\0b"s, 4), u"a\0b\0"s);
  EXPECT_EQ(CadenaAFija(u" a ", 4), u" a \0"s);
}

TEST(CadenaAFija, IsEmptyForAWidthBelowOne) {
  EXPECT_EQ(CadenaAFija(u"abc", 0), u"");
  EXPECT_EQ(CadenaAFija(u"abc", -1), u"");
  EXPECT_EQ(CadenaAFija(u"abc", std::numeric_limits<int>::min()), u"");
}

TEST(FijaACadena, DropsNulsWhereverTheyStand) {
  EXPECT_EQ(FijaACadena(u"abc\0\0"s), u"abc");
  EXPECT_EQ(FijaACadena(u"\0a\0\0b\0"s), u"ab");
  EXPECT_EQ(FijaACadena(u"\0\0"s), u"");
  EXPECT_EQ(FijaACadena(u""), u"");
  EXPECT_EQ(FijaACadena(u" a\t "), u" a\t ");
}

TEST(FixedText, AnswersWhetherTheWholeTextChanged) {
  FixedText<3> text;
  EXPECT_FALSE(text.Assign(u""));
  EXPECT_FALSE(text.Assign(u"\0\0\0"s));
  EXPECT_TRUE(text.Assign(u"abcd"));
  EXPECT_FALSE(text.Assign(u"abc"));
  EXPECT_FALSE(text.Assign(u"abcx"));
  EXPECT_TRUE(text.Assign(u"ab"));
  EXPECT_FALSE(text.Assign(u"ab\0"s));
  EXPECT_TRUE(text.Assign(u"a\0b"s));  // reads the same, is stored differently
  EXPECT_TRUE(text.Assign(u""));
}

TEST(FixedText, StoresTheFirstCharactersAndReadsWithoutNuls) {
  FixedText<4> text;
  EXPECT_EQ(text.Raw(), u"\0\0\0\0"s);
  EXPECT_TRUE(text.Empty());
  text.Assign(u"\0a\0bc"s);
  EXPECT_EQ(text.Raw(), u"\0a\0b"s);
  EXPECT_EQ(text.Read(), u"ab");
  EXPECT_EQ(text.Length(), 2u);
  EXPECT_FALSE(text.Empty());
  text.Assign(u"    ");
  EXPECT_FALSE(text.Empty());
  EXPECT_EQ(text.Length(), 4u);
}

TEST(FixedText, TakesItsOwnStoredText) {
  FixedText<4> text;
  text.Assign(u"\0ab"s);
  EXPECT_TRUE(text.Assign(text.Raw().substr(1)));
  EXPECT_EQ(text.Raw(), u"ab\0\0"s);
}

TEST(FixedText, EqualityIsThatOfTheStoredText) {
  FixedText<3> a;
  FixedText<3> b;
  EXPECT_EQ(a, b);
  a.Assign(u"a\0b"s);
  b.Assign(u"ab");
  EXPECT_NE(a, b);
  b.Assign(u"a\0b"s);
  EXPECT_EQ(a, b);
}

}  // namespace
}  // namespace conmuta
