#include "layouts/proof/family.h"

#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "layouts/proof/player.h"
#include "layouts/read_layout.h"

namespace conmuta::layouts {
namespace {

constexpr const char* kLayout = "layout.toml";
constexpr const char* kCapture = "capture.txt";
constexpr const char* kExpected = "expected.txt";

class FolderReader {
 public:
  FolderReader(std::filesystem::path folder, std::vector<Mistake>& mistakes)
      : folder_(std::move(folder)), mistakes_(mistakes) {}

  std::optional<Family> Read() {
    const auto layout_bytes = Bytes(kLayout);
    const auto capture_bytes = Bytes(kCapture);
    const auto expected_bytes = Bytes(kExpected);
    if (!layout_bytes || !capture_bytes || !expected_bytes) return std::nullopt;
    auto layout = ReadLayout(*layout_bytes, Path(kLayout));
    Take(layout.mistakes);
    auto capture = ReadCapture(*capture_bytes, Path(kCapture));
    Take(capture.mistakes);
    if (!layout.layout || !capture.capture) return std::nullopt;
    const auto rows = ReadExpected(*expected_bytes, *capture.capture, Path(kExpected));
    Take(rows.mistakes);
    if (!rows.rows) return std::nullopt;

    Family family{std::filesystem::absolute(folder_).filename().string(),
                  std::move(*layout.layout),
                  std::move(*capture.capture),
                  {}};
    std::map<int, Outcome> expected;
    for (const ExpectedRow& row : *rows.rows) expected[row.line] = row.outcome;
    for (const CaptureLine& line : family.capture.lines) {
      Outcome& outcome = family.expected.emplace_back(expected[line.number]);
      if (outcome.call) outcome.call = outcome.call->On(kPresent);
    }
    return family;
  }

 private:
  Text Path(const char* file) const { return (folder_ / file).generic_u16string(); }

  std::optional<std::string> Bytes(const char* file) {
    std::ifstream stream(folder_ / file, std::ios::binary);
    if (!stream) {
      mistakes_.push_back({MistakeKind::kMissing, Path(file), {}, {}, u"no se puede leer", {}});
      return std::nullopt;
    }
    return std::string{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  void Take(const std::vector<Mistake>& mistakes) {
    mistakes_.insert(mistakes_.end(), mistakes.begin(), mistakes.end());
  }

  std::filesystem::path folder_;
  std::vector<Mistake>& mistakes_;
};

}  // namespace

Families ReadFamilies(const std::vector<std::filesystem::path>& folders) {
  Families read;
  for (const auto& folder : folders) {
    if (auto family = FolderReader(folder, read.mistakes).Read()) {
      read.families.push_back(std::move(*family));
    }
  }
  return read;
}

}  // namespace conmuta::layouts
