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
    lines += Of(LineKind::FromCode(static_cast<std::uint8_t>(code)));
  }
  return lines;
}

std::vector<LineCounts::Part> LineCounts::PartsOf(Counter counter) const {
  std::vector<Part> parts;
  for (std::size_t code = counter.first.code(); code <= counter.last.code(); ++code) {
    const LineKind kind = LineKind::FromCode(static_cast<std::uint8_t>(code));
    if (Of(kind) != 0) parts.push_back({kind, Of(kind), SentenceOf(kind)});
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const Part& a, const Part& b) { return a.lines > b.lines; });
  return parts;
}

std::string LineCounts::Sentence() const {
  host::Tally tally;
  for (const Counter counter : {Counter::Calls(), Counter::NoCalls(), Counter::Errors()}) {
    for (const Part& part : PartsOf(counter)) {
      const std::uint64_t lines = counts_[part.kind.code()];
      tally.CountLines(part.kind.verdict(), part.kind.type(), lines);
    }
  }
  if (end_) tally.CountCall(end_->type());
  return tally.Headline();
}

}  // namespace conmuta::taller
