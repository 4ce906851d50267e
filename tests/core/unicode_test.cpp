#include "platform/unicode.h"

#include <gtest/gtest.h>

namespace conmuta {
namespace {

using namespace std::string_literals;

const std::string kMark8 = "\xEF\xBB\xBF";

struct Utf8Case {
  const char* name;
  std::string bytes;  // behind the mark
  Text text;
};

void PrintTo(const Utf8Case& row, std::ostream* out) {
  *out << row.name;
}

class Utf8Text : public testing::TestWithParam<Utf8Case> {};

TEST_P(Utf8Text, IsRead) {
  EXPECT_EQ(FromMarkedUnicode(kMark8 + GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    WellFormed, Utf8Text,
    testing::Values(Utf8Case{"Empty", "", u""}, Utf8Case{"Ascii", "a\x7F", u"a\u007F"},
                    Utf8Case{"Nul", "a\0b"s, u"a\0b"s},
                    Utf8Case{"FirstOfTwoBytes", "\xC2\x80", u"\u0080"},
                    Utf8Case{"LastOfTwoBytes", "\xDF\xBF", u"\u07FF"},
                    Utf8Case{"FirstOfThreeBytes", "\xE0\xA0\x80", u"\u0800"},
                    Utf8Case{"BeforeTheSurrogates", "\xED\x9F\xBF", u"\uD7FF"},
                    Utf8Case{"BehindTheSurrogates", "\xEE\x80\x80", u"\uE000"},
                    Utf8Case{"LastOfThreeBytes", "\xEF\xBF\xBF", u"\uFFFF"},
                    Utf8Case{"FirstOfFourBytes", "\xF0\x90\x80\x80", u"\U00010000"},
                    Utf8Case{"LastOfFourBytes", "\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
                    Utf8Case{"SecondMarkIsACharacter", "\xEF\xBB\xBFx", u"\uFEFFx"}),
    [](const auto& info) { return info.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Malformed, Utf8Text,
    testing::Values(Utf8Case{"LoneTail", "a\x80z", u"a\uFFFDz"},
                    Utf8Case{"OverlongOfTwoBytes", "\xC1\xBFz", u"\uFFFD\uFFFDz"},
                    Utf8Case{"OverlongOfThreeBytes", "\xE0\x9F\xBFz", u"\uFFFDz"},
                    Utf8Case{"OverlongOfFourBytes", "\xF0\x8F\xBF\xBFz", u"\uFFFDz"},
                    Utf8Case{"HalfASurrogatePair", "\xED\xA0\x80z", u"\uFFFDz"},
                    Utf8Case{"OtherHalf", "\xED\xBF\xBFz", u"\uFFFDz"},
                    Utf8Case{"BeyondTheLast", "\xF4\x90\x80\x80z", u"\uFFFDz"},
                    Utf8Case{"NoFirstByte", "\xF5z\xFFz", u"\uFFFDz\uFFFDz"},
                    Utf8Case{"CutByAnotherCharacter", "\xE2\x82z", u"\uFFFDz"},
                    Utf8Case{"CutByAFirstByte", "\xE2\x82\xC3\xB1", u"\uFFFD\u00F1"},
                    Utf8Case{"CutByTheEnd", "a\xF0\x90\x80", u"a\uFFFD"}),
    [](const auto& info) { return info.param.name; });

TEST(FromMarkedUnicode, ReadsUtf16OfEitherOrder) {
  EXPECT_EQ(FromMarkedUnicode("\xFF\xFE\x41\x00\xF1\x00\x3C\xD8"s), u"A\u00F1\xD83C"s);
  EXPECT_EQ(FromMarkedUnicode("\xFE\xFF\x00\x41\x00\xF1\xD8\x3C"s), u"A\u00F1\xD83C"s);
  EXPECT_EQ(FromMarkedUnicode("\xFF\xFE\x00\x00"s), u"\0"s);
}

TEST(FromMarkedUnicode, DropsHalfACharacterAtTheEndOfUtf16) {
  EXPECT_EQ(FromMarkedUnicode("\xFF\xFE\x41\x00\x42"s), u"A");
  EXPECT_EQ(FromMarkedUnicode("\xFE\xFF\x00\x41\x00"s), u"A");
}

TEST(FromMarkedUnicode, ReadsOnlyAMarkAsTheEmptyText) {
  for (const std::string& mark : {kMark8, "\xFF\xFE"s, "\xFE\xFF"s}) {
    EXPECT_EQ(FromMarkedUnicode(mark), u"");
  }
}

TEST(FromMarkedUnicode, GivesNothingWithoutAMark) {
  for (const std::string& bytes :
       {""s, "a"s, "\xEF\xBB"s, "\xEF\xBBz"s, "\xFF"s, "\xFE"s, "\xFFz\xFE"s, "a\xEF\xBB\xBF"s}) {
    EXPECT_EQ(FromMarkedUnicode(bytes), std::nullopt) << bytes.size();
  }
}

TEST(ToUtf8, WritesEveryLength) {
  EXPECT_EQ(ToUtf8(u""), "");
  EXPECT_EQ(ToUtf8(u"a\u007F"), "a\x7F");
  EXPECT_EQ(ToUtf8(u"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
  EXPECT_EQ(ToUtf8(u"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(ToUtf8(u"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
  EXPECT_EQ(ToUtf8(u"a\0b"s), "a\0b"s);
}

TEST(ToUtf8, GivesNothingForHalfASurrogatePair) {
  for (const Text& text : {u"\xD83C"s, u"a\xD83Cz"s, u"\xDF00"s, u"\xDF00\xD83C"s,
                           u"\xD83C\xD83C\xDF00"s, u"a\xDF00"s}) {
    EXPECT_EQ(ToUtf8(text), std::nullopt);
  }
}

TEST(ToUtf8, IsReadBackAsItWas) {
  Text every;
  for (char32_t c = 0; c <= 0xFFFF; ++c) {
    if (c < 0xD800 || c > 0xDFFF) every.push_back(static_cast<char16_t>(c));
  }
  for (char16_t high = 0xD800; high <= 0xDBFF; ++high) {
    every += {high, static_cast<char16_t>(0xDC00 + high % 0x400)};
  }
  const auto bytes = ToUtf8(every);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(FromMarkedUnicode(kMark8 + *bytes), every);
}

}  // namespace
}  // namespace conmuta
