#include "layouts/proof/text_table.h"

#include <algorithm>

#include "platform/format.h"
#include "platform/unicode.h"

namespace conmuta::layouts {

std::string TextTable::Lines() const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    if (widths.size() < row.size()) widths.resize(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  Text lines;
  for (const auto& row : rows_) {
    Text line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i != 0) line += u"  ";
      const bool on_the_left = i == 0 || (ragged_ && i + 1 == widths.size());
      line += on_the_left ? AlignLeft(row[i], widths[i], u' ') : AlignRight(row[i], widths[i]);
    }
    lines.append(TrimRight(line)).append(u"\n");
  }
  return ToUtf8(lines).value_or("?\n");
}

}  // namespace conmuta::layouts
