#include "platform/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace conmuta {
namespace {

using namespace std::string_literals;

TEST(Trim, TakesBlanksFromBothEndsOnly) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(Trim(u"a"), u"a");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u""), u"");
  EXPECT_EQ(TrimRight(u"  a b  "), u"  a b");
  EXPECT_EQ(TrimRight(u"   "), u"");
  EXPECT_EQ(TrimRight(u""), u"");
}

TEST(Trim, KeepsEverythingThatIsNotABlank) {
  for (const Text& text : {u"\t"s, u"\r\n"s, u"\u00A0"s, u"\u3000"s, u"\0"s, u"\v"s}) {
    SCOPED_TRACE(static_cast<unsigned>(text[0]));
    EXPECT_EQ(Trim(text), text);
    EXPECT_EQ(TrimRight(text), text);
    EXPECT_EQ(Trim(u" " + text + u" "), text);
  }
}

TEST(HasDigit, KnowsAsciiDigitsOnly) {
  EXPECT_TRUE(HasDigit(u"abc0"));
  EXPECT_TRUE(HasDigit(u"9"));
  EXPECT_TRUE(HasDigit(u"\0001"s));
  EXPECT_FALSE(HasDigit(u""));
  EXPECT_FALSE(HasDigit(u"abc /:"));
  EXPECT_FALSE(HasDigit(u"\uFF11\u0661\u00B2"));  // full-width, Arabic, superscript
}

TEST(ToUpper, MapsOneCharacterToOne) {
  struct Row {
    char16_t lower;
    char16_t upper;
  };
  static constexpr Row kRows[] = {
      {u'a', u'A'},           {u'z', u'Z'},           {u'`', u'`'},
      {u'{', u'{'},           {u'@', u'@'},           {u'0', u'0'},
      {u'\u00F1', u'\u00D1'}, {u'\u00E1', u'\u00C1'}, {u'\u00FC', u'\u00DC'},
      {u'\u00FE', u'\u00DE'}, {u'\u00F7', u'\u00F7'}, {u'\u00D7', u'\u00D7'},
      {u'\u00DF', u'\u00DF'}, {u'\u00FF', u'\u0178'}, {u'\u00B5', u'\u039C'},
      {u'\u0101', u'\u0100'}, {u'\u0100', u'\u0100'}, {u'\u0131', u'I'},
      {u'\u017F', u'S'},      {u'\u0149', u'\u0149'}, {u'\u01C6', u'\u01C4'},
      {u'\u01C5', u'\u01C4'}, {u'\u03B1', u'\u0391'}, {u'\u03C2', u'\u03A3'},
      {u'\u0436', u'\u0416'}, {u'\u0450', u'\u0400'}, {u'\u1E9E', u'\u1E9E'},
      {u'\u2170', u'\u2160'}, {u'\u24E9', u'\u24CF'}, {u'\uFB01', u'\uFB01'},
      {u'\uFF5A', u'\uFF3A'}, {u'\uFF5B', u'\uFF5B'}, {u'\uFFFF', u'\uFFFF'},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(ToUpper(row.lower), row.upper) << std::hex << unsigned{row.lower};
  }
}

TEST(ToUpper, UpperCaseStaysAsItIs) {
  for (unsigned c = 0; c <= 0xFFFF; ++c) {
    const char16_t upper = ToUpper(static_cast<char16_t>(c));
    ASSERT_EQ(ToUpper(upper), upper) << std::hex << c;
  }
}

TEST(ToUpper, LeavesSurrogatesAlone) {
  for (unsigned c = 0xD800; c <= 0xDFFF; ++c) {
    ASSERT_EQ(ToUpper(static_cast<char16_t>(c)), c);
  }
  EXPECT_EQ(ToUpper(u"\U00010428"), u"\U00010428");  // a small letter beyond the basic plane
}

TEST(ToUpper, TextKeepsItsLengthAndItsNuls) {
  EXPECT_EQ(ToUpper(u"a\0\u00F1\u00DF"s), u"A\0\u00D1\u00DF"s);
  EXPECT_EQ(ToUpper(u""s), u"");
}

TEST(EqualIgnoringCase, ComparesCharacterByCharacter) {
  EXPECT_TRUE(EqualIgnoringCase(u"", u""));
  EXPECT_TRUE(EqualIgnoringCase(u"A\u00D1o", u"a\u00F1O"));
  EXPECT_TRUE(EqualIgnoringCase(u"a\0b"s, u"A\0B"s));
  EXPECT_TRUE(EqualIgnoringCase(u"\u03C3", u"\u03C2"));  // both capital sigma
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"ab"));
  EXPECT_FALSE(EqualIgnoringCase(u"ab", u"a"));
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"a\0"s));
  EXPECT_FALSE(EqualIgnoringCase(u"\u00DF", u"ss"));
  EXPECT_FALSE(EqualIgnoringCase(u"n", u"\u00F1"));
}

TEST(ToText, WritesDecimalDigits) {
  EXPECT_EQ(ToText(0), u"0");
  EXPECT_EQ(ToText(-7), u"-7");
  EXPECT_EQ(ToText(65535), u"65535");
  EXPECT_EQ(ToText(std::numeric_limits<long long>::max()), u"9223372036854775807");
  EXPECT_EQ(ToText(std::numeric_limits<long long>::min()), u"-9223372036854775808");
}

}  // namespace
}  // namespace conmuta
