// The captures of the examples: every case on lines as they come.
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {

void MeasureCaptures() {
  for (const std::string& name : Switches()) {
    Translator translator(name);
    const Lines lines = Capture(name);
    const auto spent = BestOfTurns({[&] { translator.Translate(lines); }});
    PrintRow("capture of " + name, spent[0] / static_cast<double>(lines.size()), "ns a line");
  }
}

}  // namespace conmuta::bench
