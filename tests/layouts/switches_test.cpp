// The switches of the catalogue: each layout against what its switch prints.
#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/catalogue.h"
#include "layouts/layout_config.h"
#include "layouts/proof/tally.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "support/saved_config.h"
#include "support/source_files.h"

namespace conmuta::layouts {
namespace {

struct Folder {
  std::filesystem::path path;

  std::string name() const { return path.filename().string(); }
};
void PrintTo(const Folder& folder, std::ostream* out) {
  *out << folder.name();
}

std::vector<Folder> Folders() {
  std::vector<Folder> folders;
  for (const auto& path : SwitchFolders()) folders.push_back({path});
  return folders;
}

class SwitchFolder : public testing::TestWithParam<Folder> {
 protected:
  void SetUp() override {
    family_ = FindFamily(GetParam().name());
    ASSERT_NE(family_, nullptr);
  }

  const Layout& layout() const { return family_->layout; }

  const Family* family_ = nullptr;
};

TEST_P(SwitchFolder, CaptureGivesTheExpectedCalls) {
  const Tally tally = TallyOf(*family_);
  EXPECT_GT(tally.lines, 30);
  for (const Difference& difference : tally.differences) {
    ADD_FAILURE() << Sentence(family_->name, difference);
  }
}

// Buffers on the way take them away.
TEST_P(SwitchFolder, BlanksAtTheEndOfALineChangeNothing) {
  const auto index = static_cast<std::size_t>(family_ - Catalogue().data());
  const DamageCount& stripped = CatalogueDamage()[index][Damage::kBlanks];
  EXPECT_EQ(stripped.wrong + stripped.duration + stripped.detail, 0);
}

// They stand between and within the columns of a line without being printed.
TEST_P(SwitchFolder, ControlBytesThatHostsDropChangeNothing) {
  const std::string bytes = test::ReadWhole(GetParam().path / "capture.txt");
  std::string littered;
  for (const char c : bytes) {
    littered += c == '\n' ? std::string("\x11\r\n\x10\x13") : std::string{c, '\0'};
  }
  const auto capture = ReadCapture(littered);
  ASSERT_TRUE(capture.capture);
  Family littered_family = *family_;
  littered_family.capture = *capture.capture;
  EXPECT_EQ(TallyOf(littered_family).differences.size(), 0U);
}

TEST_P(SwitchFolder, BecomesAConfigurationAndALayoutAgain) {
  test::SavedConfig saved(layout());
  const std::string toml = WriteLayout(LayoutOf(saved.config));
  const auto again = ReadLayout(toml);
  EXPECT_EQ(again.mistakes.size(), 0U);
  ASSERT_TRUE(again.layout);
  EXPECT_EQ(test::SavedConfig(*again.layout).Bytes(), saved.Bytes());
  EXPECT_EQ(again.layout->items, layout().items);
  EXPECT_EQ(again.layout->constants, layout().constants);

  test::SavedConfig opened;
  ASSERT_TRUE(opened.Open(saved.Bytes()));
  EXPECT_EQ(opened.Bytes(), saved.Bytes());
}

TEST_P(SwitchFolder, SheetSaysEverythingThatTheCatalogueShows) {
  const Sheet& sheet = layout().sheet;
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
  std::string name = info.param.name();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace conmuta::layouts
