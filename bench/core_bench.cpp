// Measures the core, natively and on Windows.
#include "kx_lines.h"
#include "sections.h"

namespace conmuta::bench {
namespace {

constexpr std::size_t kLines = 1'000'000;

Lines MadeUpLines() {
  Lines lines;
  KxLines source;
  for (std::size_t i = 0; i < kLines; ++i) lines.Add(source.Next());
  return lines;
}

}  // namespace

}  // namespace conmuta::bench

int main() {
  using namespace conmuta::bench;
  const Lines lines = MadeUpLines();
  MeasureStandardCase(lines);
  MeasureCaptures();
  MeasureWatching(lines);
  MeasureErrors();
  MeasureParkedCalls();
  CountAllocations(lines);
  MeasureLongLines();
  MeasureFile(lines);
  MeasureCatalogue();
}
