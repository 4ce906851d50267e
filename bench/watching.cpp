// What it costs to be watched. Nobody pays for it who is not: the unwatched line is the one of the
// standard case, measured here once more after the same translator has been watched.
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr double kNoDearer = 1.05;  // the clock's own uncertainty

}  // namespace

void MeasureWatching(const Lines& lines) {
  Translator never_watched("panasonic-kx");
  Translator once_watched("panasonic-kx");
  Translator watched("panasonic-kx");
  LineObserver idle;
  once_watched.Watch(lines[0], idle);
  const auto spent = BestOfTurns({
      [&] { never_watched.Translate(lines); },
      [&] { once_watched.Translate(lines); },
      [&] {
        for (std::size_t i = 0; i < lines.size(); ++i) watched.Watch(lines[i], idle);
      },
  });
  PrintRow("line that nobody watches any more", spent[1] / spent[0], "times", kNoDearer);
  PrintRow("line that somebody watches", spent[2] / spent[0], "times");
}

}  // namespace conmuta::bench
