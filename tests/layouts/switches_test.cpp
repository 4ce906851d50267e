// The switches of the catalogue: each layout against what its switch prints.
#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/expected_calls.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "support/fake_clock.h"
#include "support/saved_config.h"
#include "support/source_files.h"
#include "translate/clsTradEST.h"

namespace conmuta::layouts {
namespace {

struct Folder {
  std::filesystem::path path;
};
void PrintTo(const Folder& folder, std::ostream* out) {
  *out << folder.path.filename().string();
}

std::vector<Folder> Folders() {
  std::vector<Folder> folders;
  for (const auto& path : test::Entries(CONMUTA_SOURCES "/switches")) {
    if (std::filesystem::is_directory(path)) folders.push_back({path});
  }
  return folders;
}

void Report(const std::vector<Mistake>& mistakes) {
  for (const Mistake& mistake : mistakes) {
    ADD_FAILURE() << testing::PrintToString(Sentence(mistake));
  }
}

class SwitchFolder : public testing::TestWithParam<Folder> {
 protected:
  static std::string Bytes(const char* file) { return test::ReadWhole(GetParam().path / file); }

  void SetUp() override {
    auto reading = ReadLayout(Bytes("layout.toml"));
    Report(reading.mistakes);
    ASSERT_TRUE(reading.layout);
    layout_ = std::move(*reading.layout);
  }

  // Compares what comes out of the capture's lines, each changed beforehand, with what must; of
  // both only what `seen` leaves.
  template <class Change, class Seen>
  void ExpectCalls(Change change, Seen seen) {
    const auto capture = ReadCapture(Bytes("capture.txt"));
    Report(capture.mistakes);
    ASSERT_TRUE(capture.capture);
    const auto expected = ReadExpected(Bytes("expected.txt"), *capture.capture);
    Report(expected.mistakes);
    ASSERT_TRUE(expected.rows);

    clsCfgConmut config(SystemPlatform());
    Apply(layout_, config);
    const test::FakeClock clock;
    clsTradEST translator(clock);
    translator.Conmutador(&config);
    LineObserver nobody;
    ASSERT_EQ(expected.rows->size(), capture.capture->lines.size());
    for (std::size_t i = 0; i < expected.rows->size(); ++i) {
      const CaptureLine& line = capture.capture->lines[i];
      ASSERT_EQ(expected.rows->at(i).line, line.number);
      const Verdict verdict = translator.Translate(change(line.text), nobody);
      Outcome wanted = expected.rows->at(i).outcome;
      if (wanted.call) wanted.call = wanted.call->On(clock.today);
      const Outcome found = OutcomeOf(verdict, translator.InfoLlamada());
      EXPECT_EQ(RowText(line.number, seen(found)), RowText(line.number, seen(wanted)))
          << testing::PrintToString(line.text);
    }
  }

  Layout layout_;
};

TEST_P(SwitchFolder, CaptureGivesTheExpectedCalls) {
  const auto everything = [](const Outcome& outcome) { return outcome; };
  ExpectCalls([](TextView line) { return line; }, everything);
}

// Buffers on the way take them away. An account read as text has fewer blanks then, and a line
// without a call may lack something else.
TEST_P(SwitchFolder, BlanksAtTheEndOfALineChangeNothing) {
  const auto calls = [](Outcome outcome) {
    if (outcome.call) {
      outcome.call->account = TrimRight(outcome.call->account);
    } else {
      outcome.reason = NoCall::kEmptyLine;
    }
    return outcome;
  };
  ExpectCalls([](TextView line) { return TrimRight(line); }, calls);
}

TEST_P(SwitchFolder, BecomesAConfigurationAndALayoutAgain) {
  test::SavedConfig saved(layout_);
  const std::string toml = WriteLayout(LayoutOf(saved.config));
  const auto again = ReadLayout(toml);
  Report(again.mistakes);
  ASSERT_TRUE(again.layout);
  EXPECT_EQ(test::SavedConfig(*again.layout).Bytes(), saved.Bytes());
  EXPECT_EQ(again.layout->items, layout_.items);
  EXPECT_EQ(again.layout->constants, layout_.constants);

  test::SavedConfig opened;
  ASSERT_TRUE(opened.Open(saved.Bytes()));
  EXPECT_EQ(opened.Bytes(), saved.Bytes());
}

TEST_P(SwitchFolder, SheetSaysEverythingThatTheCatalogueShows) {
  const Sheet& sheet = layout_.sheet;
  for (const Text* text :
       {&sheet.covers, &sheet.date, &sheet.duration, &sheet.transfers, &sheet.proof}) {
    EXPECT_FALSE(text->empty());
  }
  EXPECT_NE(sheet.time_of, Sheet::TimeOf::kUnknown);
  EXPECT_FALSE(sheet.losses.empty());
  for (const Text& name : sheet.alternatives) {
    EXPECT_TRUE(
        std::filesystem::exists(GetParam().path.parent_path() / std::filesystem::path(name)))
        << testing::PrintToString(name);
  }
}

INSTANTIATE_TEST_SUITE_P(, SwitchFolder, testing::ValuesIn(Folders()), [](const auto& info) {
  std::string name = info.param.path.filename().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace conmuta::layouts
