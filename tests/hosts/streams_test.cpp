// Bytes in and out: the lines of a capture, output in order, progress.
#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <thread>

#include "conmuta/line_source.h"
#include "conmuta/ordered_output.h"
#include "conmuta/progress.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

TEST(LineSource, GivesTheLastLineWithoutAnEnd) {
  std::istringstream bytes("# fecha: 2019-01-16\nuno\r\n\ndos");
  LineSource lines(bytes);
  std::vector<std::pair<std::uint64_t, std::string>> found;
  while (lines.Next(
      [&](std::uint64_t number, std::string_view line) { found.emplace_back(number, line); })) {
  }
  EXPECT_EQ(found, (decltype(found){{2, "uno"}, {3, ""}, {4, "dos"}}));
  EXPECT_EQ(lines.bytes_read(), 29U);
  ASSERT_TRUE(lines.date());
  EXPECT_EQ(lines.date()->day, 16);
}

// The day may be another one when the next line comes.
TEST(LineSource, TellsThatBytesHaveComeBeforeTheirLines) {
  std::istringstream bytes("a\nb\n");
  LineSource lines(bytes);
  std::string told;
  while (lines.Next([&](std::uint64_t, std::string_view line) { told += line; },
                    [&] { told += '!'; })) {
  }
  EXPECT_EQ(told, "!ab!");
}

TEST(LineSource, AnEmptyCaptureHasNoLine) {
  std::istringstream bytes("");
  LineSource lines(bytes);
  EXPECT_FALSE(lines.Next([](std::uint64_t, std::string_view) { FAIL(); }));
}

// A million bytes a source, of which little is kept, whoever comes first.
TEST(WorkInOrder, HandsOnSourceAfterSource) {
  constexpr std::size_t kSources = 6;
  const auto work = [](std::size_t source, OutBuffer& out) {
    for (int i = 0; i < 100; ++i) out.Put(std::string(100000, static_cast<char>('a' + source)));
  };
  std::string order;
  std::size_t bytes = 0;
  WorkInOrder(kSources, 3, work, [&](std::string_view text) {
    bytes += text.size();
    for (const char c : text) {
      if (order.empty() || order.back() != c) order += c;
    }
  });
  EXPECT_EQ(order, "abcdef");
  EXPECT_EQ(bytes, kSources * 100 * 100000);
}

TEST(WorkInOrder, ThrowsWhatASourceThrowsInItsTurn) {
  for (const std::size_t most : {std::size_t{1}, std::size_t{3}}) {
    std::string got;
    const auto work = [](std::size_t source, OutBuffer& out) {
      out.Put(std::string(source == 3 ? 50000000 : 1, static_cast<char>('a' + source)));
      if (source == 2) throw UserError("the third");
    };
    EXPECT_THROW(WorkInOrder(4, most, work, [&](std::string_view text) { got += text; }),
                 UserError);
    EXPECT_EQ(got.substr(0, 2), "ab");
    EXPECT_EQ(got.find('d'), std::string::npos);
  }
}

TEST(WorkInOrder, EndsWhenNobodyTakesTheOutput) {
  const auto work = [](std::size_t, OutBuffer& out) { out.Put(std::string(50000000, 'x')); };
  EXPECT_THROW(WorkInOrder(4, 2, work, [](std::string_view) { throw UserError("full"); }),
               UserError);
}

TEST(Progress, IsShownOnATerminalOnly) {
  for (const bool terminal : {false, true}) {
    std::ostringstream err;
    {
      Progress progress(err, terminal, 200, std::chrono::milliseconds(0));
      progress.Advance(100, 7);
    }
    EXPECT_EQ(err.str(), terminal ? "\r7 líneas, 50 %   \r" + std::string(40, ' ') + "\r" : "");
  }
}

TEST(Progress, IsSilentForAShortWork) {
  std::ostringstream err;
  Progress progress(err, true, 200, std::chrono::seconds(100));
  progress.Advance(100, 7);
  progress.Clear();
  EXPECT_EQ(err.str(), "");
}

TEST(Shown, EscapesWhatSteersATerminal) {
  EXPECT_EQ(Shown(u"a\x1B\x7F\x9B\u202E\uFEFFñ😀"), "a\\x1B\\x7F\\x9B\\u202E\\uFEFFñ😀");
  EXPECT_EQ(Shown(Text(1, 0xD800)), "\xEF\xBF\xBD");
  EXPECT_EQ(Utf8(u"a\x1Bñ"), "a\x1Bñ");
}

TEST(Widen, TakesUtf8AndWhatIsNoneAsWindows1252) {
  Text text = u"old";
  Widen("a\xC3\xB1", text);
  EXPECT_EQ(text, u"añ");
  Widen("a\xF1\x80\x9F", text);
  EXPECT_EQ(text, u"añ\u20AC\u0178");
  Widen("", text);
  EXPECT_EQ(text, u"");
}

}  // namespace
}  // namespace conmuta::host
