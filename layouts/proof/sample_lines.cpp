#include "layouts/proof/sample_lines.h"

#include <set>

namespace conmuta::layouts {
namespace {

bool IsInBlock(const Outcome& outcome) {
  return !outcome.call &&
         (outcome.reason == NoCall::kBlockBegins || outcome.reason == NoCall::kPartOfBlock);
}

}  // namespace

std::vector<Text> SampleLines(const Family& family) {
  std::vector<Text> lines;
  std::set<emTiposLlamadas> shown;
  for (std::size_t i = 0; i < family.expected.size(); ++i) {
    const auto& call = family.expected[i].call;
    if (!call || !shown.insert(call->type).second) continue;
    std::size_t begin = i;
    while (begin > 0 && IsInBlock(family.expected[begin - 1])) --begin;
    for (; begin <= i; ++begin) lines.emplace_back(TrimRight(family.capture.lines[begin].text));
  }
  return lines;
}

Text Ruler(std::size_t columns) {
  Text tens;
  Text units;
  for (std::size_t column = 1; column <= columns; ++column) {
    const auto digit = [](std::size_t number) { return static_cast<char16_t>(u'0' + number % 10); };
    tens += column % 10 == 0 ? digit(column / 10) : u' ';
    units += digit(column);
  }
  return Text(TrimRight(tens)).append(u"\n").append(units).append(u"\n");
}

}  // namespace conmuta::layouts
