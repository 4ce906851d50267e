#include "taller/line_counts.h"

#include <algorithm>

#include "conmuta/call_words.h"
#include "conmuta/tally.h"
#include "layouts/outcome_words.h"
#include "platform/unicode.h"

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

// In the order in which the sentence has them; the first of all, the lines, leads nowhere.
LineCounts::Line LineCounts::WithFigures() const {
  std::vector<Counter> counters = {Counter::Calls()};
  for (const host::TypeWords& words : host::kTypeWords) {
    const LineKind kind = LineKind::Call(words.type);
    if (Of(kind) != 0) counters.push_back(Counter::Of(kind));
  }
  counters.push_back(Counter::NoCalls());
  counters.push_back(Counter::Errors());

  Line line{FromUtf8(Sentence()), {}};
  constexpr TextView kDigits = u"0123456789";
  std::size_t end = line.sentence.find(u':');
  for (const Counter counter : counters) {
    const std::size_t begin = line.sentence.find_first_of(kDigits, end);
    end = std::min(line.sentence.find_first_of(u"(),", begin), line.sentence.size());
    const std::size_t last = line.sentence.find_last_not_of(u' ', end - 1);
    line.figures.push_back({begin, last + 1, counter});
  }
  return line;
}

}  // namespace conmuta::taller
