#include "taller/capture_text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <fstream>

#include "conmuta/user_error.h"
#include "support/random.h"
#include "support/temporary_folder.h"
#include "taller/shown_line.h"

namespace conmuta::taller {
namespace {

using Strings = std::vector<std::string>;

std::shared_ptr<MemoryBytes> Live(std::string bytes = {}) {
  return std::make_shared<MemoryBytes>(MemoryBytes::Kind::kLive, std::move(bytes));
}

void SeeAll(CaptureText& text) {
  while (text.Step()) {
  }
}

Strings AllLines(const CaptureText& text) {
  Strings lines;
  for (std::uint64_t i = 1; i <= text.lines(); ++i) lines.push_back(text.Line(i));
  return lines;
}

// The same by cutting everything at once.
Strings NaiveLines(const std::string& bytes) {
  Strings lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
    lines.push_back(bytes.substr(begin, std::min(end - begin, CaptureText::kMostOfLine)));
    begin = end + 1;
  }
  return lines;
}

void Write(const std::filesystem::path& path, const std::string& bytes,
           std::ios::openmode mode = std::ios::trunc) {
  std::ofstream(path, std::ios::binary | mode) << bytes;
}

TEST(CaptureText, GivesEachLineOfAnyBytesByItsNumber) {
  test::Random random(15);
  for (int round = 0; round < 60; ++round) {
    std::string bytes;
    for (int line = random.Below(3000); line > 0; --line) {
      const int most = random.Percent(1) ? 70000 : random.Percent(80) ? 90 : 1;
      for (int left = random.Below(most); left > 0; --left) {
        bytes += static_cast<char>(random.Below(256));
      }
      bytes += '\n';
    }
    if (random.Percent(50)) bytes += "sin fin";
    CaptureText text(Live(bytes));
    while (text.Step(static_cast<std::size_t>(random.Between(1, 100000)))) {
    }
    const Strings wanted = NaiveLines(bytes);
    ASSERT_EQ(text.lines(), wanted.size());
    for (int looks = 0; looks < 200 && !wanted.empty(); ++looks) {
      const int at = random.Below(static_cast<int>(wanted.size()));
      ASSERT_EQ(text.Line(static_cast<std::uint64_t>(at) + 1), wanted[static_cast<std::size_t>(at)])
          << at;
    }
  }
}

TEST(CaptureText, ShowsTheFirstLinesBeforeItHasSeenTheRest) {
  std::string bytes;
  for (int i = 1; i <= 10000; ++i) bytes += "linea " + std::to_string(i) + "\r\n";
  CaptureText text(Live(bytes));
  EXPECT_TRUE(text.Step(1000));
  EXPECT_EQ(text.bytes_seen(), 1000u);
  EXPECT_EQ(text.Line(1), "linea 1\r");
  EXPECT_EQ(text.Line(50), "linea 50\r");
  EXPECT_LT(text.lines(), 120u);
}

TEST(CaptureText, HasNoLineZeroAndNoneBehindTheLast) {
  CaptureText text(Live("a\nb\n"));
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"a", "b"}));
  EXPECT_EQ(text.Line(0), "");
  EXPECT_EQ(text.Line(3), "");
}

TEST(CaptureText, ALineGrowsUntilItsEndComes) {
  const auto bytes = Live("uno\ndo");
  CaptureText text(bytes);
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"uno", "do"}));
  bytes->Append("s\ntres");
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"uno", "dos", "tres"}));
  bytes->Append("\n");
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"uno", "dos", "tres"}));
}

TEST(CaptureText, TheHeadEndsWithTheFirstLineThatIsNoComment) {
  CaptureText text(Live("# conmutador: X\r\n# fecha: 2019-01-16\r\n01/14\r\n# otra\r\n"));
  SeeAll(text);
  EXPECT_EQ(text.head_lines(), 2u);
  ASSERT_TRUE(text.date());
  EXPECT_EQ(text.date()->year, 2019);
  EXPECT_EQ(text.date()->day, 16);
}

TEST(CaptureText, AHundredMegabytesAreCountedInTwoSeconds) {
  std::string bytes;
  bytes.reserve(std::size_t{100} << 20);
  const std::string line =
      "01/14/19 09:07AM *1204 03 18005550123                    00:12'40 98765\r\n";
  while (bytes.size() < bytes.capacity() - line.size()) bytes += line;
  const auto memory = std::make_shared<MemoryBytes>(MemoryBytes::Kind::kPasted, std::move(bytes));
  const std::clock_t begin = std::clock();  // of the processor: other programs want some, too
  CaptureText text(memory);
  SeeAll(text);
  const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  EXPECT_EQ(text.lines(), memory->size() / line.size());
  EXPECT_EQ(text.Line(text.lines() / 2) + "\n", line);
  EXPECT_LT(seconds, 2);
  RecordProperty("seconds", std::to_string(seconds));
}

TEST(CaptureText, WhatAnEditorWritesInFrontOfTheFirstLineIsNoneOfIt) {
  CaptureText text(Live("\xEF\xBB\xBF# fecha: 2019-01-16\r\nuno\n"));
  SeeAll(text);
  EXPECT_EQ(text.head_lines(), 1u);
  EXPECT_EQ(AllLines(text), (Strings{"# fecha: 2019-01-16\r", "uno"}));
}

TEST(CaptureFile, IsReadWithoutBeingLoaded) {
  const test::TemporaryFolder folder;
  Write(folder.path() / "c.txt", "uno\ndos\n");
  CaptureText text(std::make_shared<FileBytes>(folder.path() / "c.txt"));
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"uno", "dos"}));
}

TEST(CaptureFile, OneThatIsNotThereIsSaid) {
  const test::TemporaryFolder folder;
  EXPECT_THROW(FileBytes(folder.path() / "c.txt"), host::UserError);
  EXPECT_THROW(FileBytes{folder.path()}, host::UserError);
}

TEST(CaptureFile, WhatWasAppendedComesWithTheNextLook) {
  const test::TemporaryFolder folder;
  const auto path = folder.path() / "c.txt";
  Write(path, "uno\n");
  const auto bytes = std::make_shared<FileBytes>(path);
  CaptureText text(bytes);
  SeeAll(text);
  EXPECT_EQ(bytes->Look(), FileBytes::Change::kNone);
  Write(path, "dos\n", std::ios::app);
  char room[99];
  EXPECT_EQ(bytes->Read(1, room), 3u);
  EXPECT_EQ(bytes->Look(), FileBytes::Change::kGrown);
  SeeAll(text);
  EXPECT_EQ(AllLines(text), (Strings{"uno", "dos"}));
  EXPECT_EQ(bytes->Look(), FileBytes::Change::kNone);
}

TEST(CaptureFile, AnotherOneInItsPlaceIsNoticed) {
  const test::TemporaryFolder folder;
  const auto path = folder.path() / "c.txt";
  Write(path, "uno\ndos\n");
  FileBytes bytes(path);
  Write(path, "uno\n");
  EXPECT_EQ(bytes.Look(), FileBytes::Change::kReplaced) << "shorter";
  Write(path, "otro texto, y más largo\n");
  EXPECT_EQ(bytes.Look(), FileBytes::Change::kReplaced) << "longer, and begins otherwise";
  Write(path, "tres\ndos");
  std::filesystem::last_write_time(
      path, std::filesystem::last_write_time(path) + std::chrono::seconds(10));
  EXPECT_EQ(bytes.Look(), FileBytes::Change::kReplaced) << "as long, written later";
  std::filesystem::remove(path);
  EXPECT_EQ(bytes.Look(), FileBytes::Change::kGone);
}

TEST(ShownLine, ControlBytesAreShownBetweenTheColumnsTheyCameIn) {
  const ShownLine shown =
      Show(std::string_view("\x02"
                            "ab\x11"
                            "c\0d\x7F\r",
                            9));
  EXPECT_EQ(shown.text, u"abcd");
  EXPECT_EQ(shown.seen, u"abcd");
  const std::vector<ShownLine::Control> wanted = {
      {1, u'\u2402'}, {3, u'\u2411'}, {4, u'\u2400'}, {5, u'\u2421'}};
  EXPECT_EQ(shown.controls, wanted);
}

TEST(ShownLine, ColumnsAreCharactersNotBytes) {
  const ShownLine shown = Show("ñandú\x02.");
  EXPECT_EQ(shown.text, u"ñandú.");
  ASSERT_EQ(shown.controls.size(), 1u);
  EXPECT_EQ(shown.controls[0].column, 6u);
}

TEST(ShownLine, WhatCannotBeSeenHasASymbolInItsColumn) {
  EXPECT_EQ(Show("a\xE2\x80\xAE"
                 "b")
                .seen,
            u"a\u00B7b");
}

}  // namespace
}  // namespace conmuta::taller
