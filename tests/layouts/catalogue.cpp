#include "layouts/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/source_files.h"

namespace conmuta::layouts {

std::vector<std::filesystem::path> SwitchFolders() {
  auto folders = test::Entries(CONMUTA_SOURCES "/switches");
  std::erase_if(folders, [](const auto& path) { return !std::filesystem::is_directory(path); });
  return folders;
}

const std::vector<Family>& Catalogue() {
  static const std::vector<Family> families = [] {
    auto read = ReadFamilies(SwitchFolders());
    for (const Mistake& mistake : read.mistakes) {
      ADD_FAILURE() << testing::PrintToString(Sentence(mistake));
    }
    return std::move(read.families);
  }();
  return families;
}

const Family* FindFamily(const std::string& name) {
  const auto& families = Catalogue();
  const auto found = std::find_if(families.begin(), families.end(),
                                  [&](const Family& family) { return family.name == name; });
  return found != families.end() ? &*found : nullptr;
}

const std::vector<DamageReport>& CatalogueDamage() {
  static const std::vector<DamageReport> reports = [] {
    std::vector<DamageReport> made;
    for (const Family& family : Catalogue()) made.push_back(DamageReportOf(family));
    return made;
  }();
  return reports;
}

}  // namespace conmuta::layouts
