// The text of a line with what stands behind it, and its digits.
#include "translate/line_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "support/random.h"

namespace conmuta {
namespace {

// What is known of a line, asked column by column.
void ExpectHolds(const LineText& line, TextView text) {
  ASSERT_TRUE(line.View() == text);
  EXPECT_EQ(line.HasDigit(), HasDigit(text));
  for (std::size_t column = 0; column < LineText::kReach; ++column) {
    const char16_t expected = column < text.size() ? text[column] : kNul;
    ASSERT_EQ(*line.From(column), expected) << "column " << column << " of " << text.size();
  }
  for (std::size_t begin = 0; begin < 255; ++begin) {
    const std::uint64_t bits = line.DigitsIn(begin, DigitsPlace(begin, 1)).bits;
    ASSERT_EQ(bits, *line.From(begin) >= u'0' && *line.From(begin) <= u'9' ? 1u : 0u)
        << "column " << begin << " of " << text.size();
  }
}

TEST(LineText, IsEmptyAtFirst) {
  ExpectHolds(LineText(), u"");
}

TEST(LineText, KnowsItsDigitsAndNothingBehindItsEnd) {
  test::Random random(7);
  LineText line;
  for (int i = 0; i < 400; ++i) {
    // Lengths around those at which lines are treated otherwise, in no order.
    const int longest =
        random.OneOf(std::u16string_view(u"\x10\x11\x20\x60\x61\x70\x16F\x170\x171\x200"));
    const Text text = random.String(u"0123456789/:. -AZaz\0\xFFFF\x8030\x30A0\x3BF\u0660",
                                    random.Percent(30) ? longest : random.Between(0, longest));
    line.Assign(text);
    ExpectHolds(line, text);
  }
}

TEST(LineText, TakesOnlyTheTenDigitsForDigits) {
  for (int code = 0; code <= 0xFFFF; ++code) {
    const auto c = static_cast<char16_t>(code);
    const Text text(1, c);
    EXPECT_EQ(LineText(text).HasDigit(), c >= u'0' && c <= u'9') << code;
  }
}

TEST(LineText, FindsADigitBeyondWhatSlotsCanName) {
  Text text(1000, u'x');
  EXPECT_FALSE(LineText(text).HasDigit());
  text.back() = u'7';
  EXPECT_TRUE(LineText(text).HasDigit());
}

TEST(LineText, MayBeGivenAPartOfItself) {
  LineText line(u"0123456789 abcdefghij 0123456789");
  line.Assign(line.View());
  ExpectHolds(line, u"0123456789 abcdefghij 0123456789");
  line.Assign(line.View().substr(11));
  ExpectHolds(line, u"abcdefghij 0123456789");
  line.Assign(line.View().substr(line.size()));
  ExpectHolds(line, u"");
}

TEST(LineText, IsCutAtItsEnd) {
  const LineText line(u"abcdef");
  EXPECT_TRUE(line.Cut(0, 3) == u"abc");
  EXPECT_TRUE(line.Cut(4, 9) == u"ef");
  EXPECT_TRUE(line.Cut(6, 1) == u"");
  EXPECT_TRUE(line.Cut(254, 1) == u"");
}

TEST(LineText, GivesTheDigitsOfAFieldWhereverItLies) {
  Text text;
  for (int i = 0; i < 260; ++i)
    text.push_back(i % 3 == 2 ? u'-' : static_cast<char16_t>(u'0' + i % 10));
  const LineText line(text);
  for (std::size_t begin = 0; begin < 200; ++begin) {
    for (const std::size_t size : {1u, 2u, 7u, 10u, 25u, 30u, 31u, 55u, 56u}) {
      Text expected;
      for (const char16_t c : text.substr(begin, size)) {
        if (IsDigit(c)) expected.push_back(c);
      }
      const FieldDigits digits = line.DigitsIn(begin, DigitsPlace(begin, size));
      BoundedText<10> narrow;
      BoundedText<30> wide;
      narrow = digits;
      wide = digits;
      ASSERT_TRUE(TextView(narrow) == TextView(expected).substr(0, 10)) << begin << ',' << size;
      ASSERT_TRUE(TextView(wide) == TextView(expected).substr(0, 30)) << begin << ',' << size;
    }
  }
}

}  // namespace
}  // namespace conmuta
