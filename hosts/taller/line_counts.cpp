#include "taller/line_counts.h"

#include <algorithm>

#include "conmuta/tally.h"
#include "layouts/outcome_words.h"

namespace conmuta::taller {
namespace {

TextView SentenceOf(LineKind kind) {
  if (kind.IsCall()) return layouts::FindWord(layouts::kTypeWords, kind.type());
  return conmuta::Sentence(kind.verdict());
}

}  // namespace

std::uint64_t LineCounts::Of(Counter counter) const {
  std::uint64_t lines = 0;
  for (std::size_t code = counter.first.code(); code <= counter.last.code(); ++code) {
    lines += counts_[code];
  }
  return lines;
}

std::vector<LineCounts::Part> LineCounts::PartsOf(Counter counter) const {
  std::vector<Part> parts;
  for (std::size_t code = counter.first.code(); code <= counter.last.code(); ++code) {
    if (counts_[code] == 0) continue;
    const LineKind kind = LineKind::FromCode(static_cast<std::uint8_t>(code));
    parts.push_back({kind, counts_[code], SentenceOf(kind)});
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const Part& a, const Part& b) { return a.lines > b.lines; });
  return parts;
}

std::string LineCounts::Sentence() const {
  host::Tally tally;
  for (const Counter counter : {Counter::Calls(), Counter::NoCalls(), Counter::Errors()}) {
    for (const Part& part : PartsOf(counter)) {
      tally.CountLines(part.kind.verdict(), part.kind.type(), part.lines);
    }
  }
  return tally.Headline();
}

}  // namespace conmuta::taller
