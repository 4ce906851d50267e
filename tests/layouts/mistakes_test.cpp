// Each file in mistakes/ begins with what must be reported of it: "# LINE:COLUMN ITEM | SENTENCE".
#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/read_layout.h"
#include "platform/unicode.h"
#include "support/source_files.h"

namespace conmuta::layouts {
namespace {

class LayoutMistake : public testing::TestWithParam<std::filesystem::path> {};

std::vector<std::string> HeadOf(const std::string& toml) {
  std::vector<std::string> head;
  for (std::size_t begin = 0; toml.compare(begin, 2, "# ") == 0;) {
    const std::size_t end = toml.find('\n', begin);
    head.push_back(toml.substr(begin + 2, end - begin - 2));
    begin = end + 1;
  }
  return head;
}

std::string Line(const Mistake& mistake) {
  Text line = ToText(mistake.place.line) + u":" + ToText(mistake.place.column) + u" ";
  if (!mistake.item.empty()) line += mistake.item + u" ";
  return ToUtf8(line + u"| " + Sentence(mistake)).value();
}

TEST_P(LayoutMistake, IsReportedWithItsPlaceAndInASentence) {
  const std::string toml = test::ReadWhole(GetParam());
  const auto reading = ReadLayout(toml);
  std::vector<std::string> found;
  for (const Mistake& mistake : reading.mistakes) found.push_back(Line(mistake));
  const auto expected = HeadOf(toml);
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(found, expected);
  EXPECT_FALSE(reading.layout);
}

INSTANTIATE_TEST_SUITE_P(, LayoutMistake,
                         testing::ValuesIn(test::Entries(CONMUTA_SOURCES
                                                         "/tests/layouts/mistakes")),
                         [](const auto& info) {
                           std::string name = info.param.stem().string();
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace conmuta::layouts
