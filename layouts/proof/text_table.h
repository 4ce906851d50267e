// Columns lined up for people, in a fixed-pitch font.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace conmuta::layouts {

// The first column is lined up on the left, and so is the last one if it is `ragged`: nothing fills
// it up. All others are lined up on the right. Rows may have fewer cells than others.
class TextTable {
 public:
  explicit TextTable(bool ragged = false) : ragged_(ragged) {}

  void Add(std::vector<Text> row) { rows_.push_back(std::move(row)); }
  // UTF-8, LF at the end of each row, two blanks between columns and none behind the last one.
  std::string Lines() const;

 private:
  bool ragged_;
  std::vector<std::vector<Text>> rows_;
};

}  // namespace conmuta::layouts
