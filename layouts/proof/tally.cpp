#include "layouts/proof/tally.h"

#include "layouts/outcome_words.h"
#include "layouts/proof/player.h"
#include "layouts/proof/text_table.h"
#include "platform/unicode.h"

namespace conmuta::layouts {

Tally TallyOf(const Family& family) {
  PlayedSwitch played(family.layout);
  const auto outcomes = Play(played, family.capture);
  Tally tally;
  tally.lines = static_cast<int>(outcomes.size());
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    const Outcome& found = outcomes[i];
    if (found.call) {
      ++tally.calls[found.call->type];
    } else if (found.error != LineError::kNone) {
      ++tally.errors;
    } else {
      ++tally.without_call[found.reason];
    }
    if (found != family.expected[i]) {
      tally.differences.push_back({family.capture.lines[i].number, family.expected[i], found});
    }
  }
  return tally;
}

std::string TallyTable(const std::vector<Family>& families, const std::vector<Tally>& tallies) {
  TextTable table(/*ragged=*/true);
  std::vector<Text> heading = {u"conmutador", u"líneas"};
  for (const auto& row : kTypeWords) heading.emplace_back(row.word);
  heading.insert(heading.end(), {u"errores", u"distintas", u"sin llamada"});
  table.Add(heading);
  for (std::size_t i = 0; i < families.size(); ++i) {
    const Tally& tally = tallies[i];
    std::vector<Text> row = {FromUtf8(families[i].name), ToText(tally.lines)};
    for (const auto& type : kTypeWords) {
      const auto found = tally.calls.find(type.code);
      row.push_back(ToText(found == tally.calls.end() ? 0 : found->second));
    }
    row.push_back(ToText(tally.errors));
    row.push_back(ToText(static_cast<int>(tally.differences.size())));
    Text reasons;
    for (const auto& [reason, count] : tally.without_call) {
      if (!reasons.empty()) reasons += u", ";
      reasons.append(ToText(count)).append(u" ").append(FindWord(kReasonWords, reason));
    }
    row.push_back(reasons);
    table.Add(std::move(row));
  }
  return table.Lines();
}

std::string Sentence(const std::string& family, const Difference& difference) {
  const Text sentence = FromUtf8(family) + u": línea " + ToText(difference.line) +
                        u"\n  se espera: " + RowText(difference.line, difference.expected) +
                        u"\n  sale:      " + RowText(difference.line, difference.found);
  return ToUtf8(sentence).value_or(family);
}

}  // namespace conmuta::layouts
