// What the readers of a layout file's parts have in common: typed access to values, and the list of
// mistakes that it fills.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "layouts/mistake.h"
#include "layouts/toml_tree.h"

namespace conmuta::layouts {

// The last column of a line that an item can reach.
inline constexpr std::int64_t kLastColumn = 254;

class Findings {
 public:
  explicit Findings(TextView file) : file_(file) {}

  void Add(MistakeKind kind, Place place, TextView item, Text what, Text allowed = {});
  // A name that is none of the allowed ones.
  void AddUnknown(Place place, TextView item, TextView written, std::span<const TextView> names);

  std::vector<Mistake> Take() { return std::move(mistakes_); }
  std::size_t count() const { return mistakes_.size(); }

  // The value as it has to be, or nothing and a mistake about `item`.
  const Text* AsText(const TomlValue& value, TextView item);
  std::optional<std::int64_t> AsInteger(const TomlValue& value, TextView item);
  std::optional<bool> AsTruth(const TomlValue& value, TextView item);
  const std::vector<TomlEntry>* AsTable(const TomlValue& value, TextView item);
  std::optional<std::vector<Text>> AsTexts(const TomlValue& value, TextView item);
  // Whole numbers of 32 bits.
  std::optional<std::int32_t> AsCode(const TomlValue& value, TextView item);

  // Whether a configuration can keep the text.
  bool CheckCharacters(TextView text, Place place, TextView item);

 private:
  Text file_;
  std::vector<Mistake> mistakes_;
};

}  // namespace conmuta::layouts
