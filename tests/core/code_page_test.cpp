#include "platform/code_page.h"

#include <gtest/gtest.h>

#include "platform/platform.h"
#include "support/fake_code_pages.h"

namespace conmuta {
namespace {

using namespace std::string_literals;

const CodePage& System() {
  return SystemPlatform().code_page;
}

bool SystemIsWindows1252() {
  return System().FromBytes("\x80\xF1\xD0") == u"\u20AC\u00F1\u00D0";
}

std::string Byte(unsigned code) {
  return std::string(1, static_cast<char>(code));
}

class Windows1252 : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SystemIsWindows1252()) << "these tests want a machine set to Windows-1252";
  }
};

TEST_F(Windows1252, EveryByteHasItsCharacter) {
  static constexpr char16_t kFrom80To9F[] =
      u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D"
      u"\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D"
      u"\u017E\u0178";
  for (unsigned code = 0; code <= 0xFF; ++code) {
    const char16_t character =
        code >= 0x80 && code <= 0x9F ? kFrom80To9F[code - 0x80] : static_cast<char16_t>(code);
    EXPECT_EQ(System().FromBytes(Byte(code)), Text(1, character)) << std::hex << code;
    EXPECT_EQ(System().ToBytes(Text(1, character)), Byte(code)) << std::hex << code;
    EXPECT_EQ(CharacterOfCode(System(), static_cast<unsigned char>(code)), character);
    EXPECT_EQ(CharacterCode(System(), character), code);
  }
}

TEST_F(Windows1252, WhatItLacksBecomesAQuestionMark) {
  for (unsigned c = 0; c <= 0xFFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const Text text(1, static_cast<char16_t>(c));
    const std::string bytes = System().ToBytes(text);
    ASSERT_EQ(bytes.size(), 1u) << std::hex << c;
    if (bytes != "?") {
      ASSERT_EQ(System().FromBytes(bytes), text) << std::hex << c;
    }
  }
  EXPECT_EQ(System().ToBytes(u"a\u03A9\u0080\u0100b"), "a???b");  // no look-alike letters
  EXPECT_EQ(CharacterCode(System(), u'\u4E2D'), '?');
  EXPECT_EQ(CharacterCode(System(), u'\xD83D'), '?');
}

TEST_F(Windows1252, CharactersBeyondTheBasicPlaneBecomeQuestionMarks) {
  const std::string bytes = System().ToBytes(u"a\U0001F4DEb");
  EXPECT_EQ(bytes.front(), 'a');
  EXPECT_EQ(bytes.back(), 'b');
  EXPECT_EQ(bytes.find_first_not_of('?', 1), bytes.size() - 1);
}

TEST(SystemCodePage, PassesAsciiAndNulsThrough) {
  Text text;
  std::string bytes;
  for (char c = 0; c < 0x7F; ++c) {
    text.push_back(static_cast<char16_t>(c));
    bytes.push_back(c);
  }
  EXPECT_EQ(System().ToBytes(text), bytes);
  EXPECT_EQ(System().FromBytes(bytes), text);
  EXPECT_EQ(System().ToBytes(u"\0a\0"s), "\0a\0"s);
  EXPECT_EQ(System().ToBytes(u""), "");
  EXPECT_EQ(System().FromBytes(""), u"");
}

TEST(CharacterCode, IsThatOfAQuestionMarkForSeveralBytes) {
  const test::SeveralBytes code_page;
  EXPECT_EQ(CharacterCode(code_page, u'a'), 'a');
  EXPECT_EQ(CharacterCode(code_page, kNul), 0);
  EXPECT_EQ(CharacterCode(code_page, u'\u00F1'), '?');
}

TEST(CharacterOfCode, IsTheReplacementForHalfACharacter) {
  const test::SeveralBytes code_page;
  EXPECT_EQ(CharacterOfCode(code_page, 'a'), u'a');
  EXPECT_EQ(CharacterOfCode(code_page, '<'), u'\uFFFD');
}

TEST(FixedBytes, AreExactlyAsWideAsAsked) {
  const test::Latin1 code_page;
  EXPECT_EQ(ToFixedBytes(code_page, u"abc", 5), "abc\0\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, u"abc", 3), "abc");
  EXPECT_EQ(ToFixedBytes(code_page, u"abc", 2), "ab");
  EXPECT_EQ(ToFixedBytes(code_page, u"abc", 0), "");
  EXPECT_EQ(ToFixedBytes(code_page, u"", 2), "\0\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, u"a\0b"s, 4), "a\0b\0"s);
}

TEST(FixedBytes, NeverEndInHalfACharacter) {
  const test::SeveralBytes code_page;
  EXPECT_EQ(ToFixedBytes(code_page, u"a\u00F1", 3), "a<>");
  EXPECT_EQ(ToFixedBytes(code_page, u"a\u00F1", 2), "a\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, u"\u00F1\u00F1\u00F1", 5), "<><>\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, u"\u00F1", 1), "\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, u"\u00F1", 0), "");
  EXPECT_EQ(ToFixedBytes(code_page, u"ab\U0001F4DE", 6), "ab[==]");
  EXPECT_EQ(ToFixedBytes(code_page, u"ab\U0001F4DE", 5), "ab\0\0\0"s);
}

TEST(FixedBytes, HalfASurrogatePairGoesAlone) {
  const test::SeveralBytes code_page;
  EXPECT_EQ(ToFixedBytes(code_page, Text{u'\xDC00'}, 1), "\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, Text{u'a', u'\xD83D'}, 2), "a\0"s);
  EXPECT_EQ(ToFixedBytes(code_page, Text{u'a', u'\xDC00'}, 2), "a\0"s);
}

}  // namespace
}  // namespace conmuta
