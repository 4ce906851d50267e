#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/read_layout.h"
#include "support/source_files.h"

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
  for (const auto& path : test::Entries(CONMUTA_SOURCES "/switches")) folders.push_back({path});
  return folders;
}

class SwitchFolder : public testing::TestWithParam<Folder> {};

TEST_P(SwitchFolder, LayoutHasNoMistake) {
  const auto reading = ReadLayout(test::ReadWhole(GetParam().path / "layout.toml"));
  for (const Mistake& mistake : reading.mistakes)
    ADD_FAILURE() << testing::PrintToString(Sentence(mistake));
  EXPECT_TRUE(reading.layout);
}

INSTANTIATE_TEST_SUITE_P(, SwitchFolder, testing::ValuesIn(Folders()), [](const auto& info) {
  std::string name = info.param.path.filename().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace conmuta::layouts
