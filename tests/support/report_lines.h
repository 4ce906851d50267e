// Reports as lines that compare and print.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"
#include "support/config_snapshot.h"

namespace conmuta::test {

// What stands between the line breaks. A text that ends with one has an empty last line.
inline std::vector<std::string> LinesOf(TextView text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (;;) {
    const std::size_t end = text.find(kLineBreak, from);
    if (end == TextView::npos) break;
    lines.push_back(Shown(text.substr(from, end - from)));
    from = end + kLineBreak.size();
  }
  lines.push_back(Shown(text.substr(from)));
  return lines;
}

inline std::vector<std::string> ShownAll(const std::vector<Text>& texts) {
  std::vector<std::string> shown;
  for (const Text& text : texts) shown.push_back(Shown(text));
  return shown;
}

}  // namespace conmuta::test
