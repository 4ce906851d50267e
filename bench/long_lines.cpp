// Giant lines: what a character costs must not grow with their length.
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr double kMostGrowth = 4;  // beyond the caches memory costs something, too

double NanosecondsACharacter(std::size_t length) {
  Translator translator("panasonic-kx");
  const Text line(length, u'x');  // searched for a digit to its end
  const std::size_t repeated = (1 << 20) / length;
  const auto spent = BestOfTurns({[&] {
    for (std::size_t i = 0; i < repeated; ++i) translator.Translate(line);
  }});
  return spent[0] / static_cast<double>(repeated * length);
}

}  // namespace

void MeasureLongLines() {
  const double small = NanosecondsACharacter(1 << 10);
  const double large = NanosecondsACharacter(1 << 15);
  const double giant = NanosecondsACharacter(1 << 20);
  PrintRow("line of 1 K characters", small, "ns a character");
  PrintRow("line of 32 K characters", large, "ns a character");
  PrintRow("line of 1 M characters", giant, "ns a character");
  PrintRow("character of 1 M to one of 32 K", giant / large, "times", kMostGrowth);
}

}  // namespace conmuta::bench
