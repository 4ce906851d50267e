#include "taller/column_look.h"

#include <algorithm>
#include <climits>
#include <map>

#include "layouts/numbers.h"

namespace conmuta::taller {
namespace {

template <class Key>
typename std::map<Key, std::size_t>::const_iterator Commonest(
    const std::map<Key, std::size_t>& counts) {
  return std::max_element(counts.begin(), counts.end(),
                          [](const auto& a, const auto& b) { return a.second < b.second; });
}

}  // namespace

ColumnLook LookAt(const std::vector<Text>& lines, int pos, int size) {
  ColumnLook look;
  const auto begin = static_cast<std::size_t>(pos - 1);
  const auto length = static_cast<std::size_t>(size);
  std::map<TextView, std::size_t> texts;
  std::map<char16_t, std::size_t> before;
  std::map<char16_t, std::size_t> behind;
  std::map<char16_t, std::size_t> beyond;
  std::size_t digits = 0;
  std::size_t letters = 0;
  look.least = INT_MAX;
  for (const Text& line : lines) {
    if (line.size() <= begin) continue;
    const TextView found = TextView(line).substr(begin, length);
    const TextView word = Trim(found);
    if (word.empty()) continue;
    ++look.lines;
    ++texts[found];
    const auto at = [&](std::size_t column) { return column < line.size() ? line[column] : u' '; };
    ++before[begin != 0 ? line[begin - 1] : u' '];
    ++behind[at(begin + length)];
    ++beyond[at(begin + length + 3)];
    if (std::all_of(word.begin(), word.end(), IsDigit)) {
      ++digits;
      const int number = layouts::ReadDigitsOnly(word).value_or(INT_MAX);
      look.least = std::min(look.least, number);
      look.most = std::max(look.most, number);
    }
    letters += std::any_of(word.begin(), word.end(), [](char16_t c) { return !IsDigit(c); });
  }
  if (look.lines == 0) return {};
  const auto share = [&](std::size_t count) {
    return static_cast<double>(count) / static_cast<double>(look.lines);
  };
  look.digits = share(digits);
  look.letters = share(letters);
  look.steady = share(Commonest(texts)->second);
  look.before = Commonest(before)->first;
  look.behind = Commonest(behind)->first;
  look.beyond = Commonest(beyond)->first;
  return look;
}

}  // namespace conmuta::taller
