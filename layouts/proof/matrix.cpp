#include "layouts/proof/matrix.h"

#include "layouts/proof/plausible.h"
#include "layouts/proof/player.h"
#include "layouts/proof/text_table.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

Explained Explain(PlayedSwitch& played, const Family& family) {
  Player player(played);
  Plausibility plausibility;
  Explained explained;
  for (std::size_t i = 0; i < family.capture.lines.size(); ++i) {
    const Outcome found = player.Take(family.capture.lines[i].text, plausibility);
    const bool is_plausible = plausibility.Take();
    if (!found.call) continue;
    ++explained.calls;
    explained.plausible += is_plausible ? 1 : 0;
    explained.expected += found == family.expected[i] ? 1 : 0;
  }
  return explained;
}

Text Number(std::size_t index) {
  return ToText(static_cast<int>(index) + 1);
}

}  // namespace

Matrix MatrixOf(const std::vector<Family>& families) {
  Matrix matrix;
  for (const Family& layout : families) {
    PlayedSwitch played(layout.layout);
    auto& row = matrix.emplace_back();
    for (const Family& family : families) row.push_back(Explain(played, family));
  }
  return matrix;
}

std::vector<std::size_t> Rivals(const Matrix& matrix, std::size_t family) {
  std::vector<std::size_t> rivals;
  for (std::size_t layout = 0; layout < matrix.size(); ++layout) {
    if (layout != family && matrix[layout][family].Score() >= matrix[family][family].Score()) {
      rivals.push_back(layout);
    }
  }
  return rivals;
}

std::string MatrixTable(const std::vector<Family>& families, const Matrix& matrix) {
  TextTable table;
  std::vector<Text> heading = {u"configuración \\ captura"};
  for (std::size_t i = 0; i < families.size(); ++i) heading.push_back(Number(i));
  table.Add(heading);
  for (std::size_t i = 0; i < families.size(); ++i) {
    std::vector<Text> row = {Number(i) + u" " + FromUtf8(families[i].name)};
    for (const Explained& explained : matrix[i]) {
      Text cell = explained.calls == 0 ? Text(u".") : ToText(explained.calls);
      if (explained.plausible != explained.calls) {
        cell.append(u"/").append(ToText(explained.plausible));
      }
      row.push_back(std::move(cell));
    }
    table.Add(std::move(row));
  }
  return table.Lines();
}

}  // namespace conmuta::layouts
