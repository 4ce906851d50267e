// The captures of all switches: every case on lines as they come.
#include <list>
#include <utility>

#include "layouts/names.h"
#include "platform/unicode.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {

void MeasureCaptures() {
  for (int code = emCasoEstandar; code <= emCasoRestaFechasDuracion; ++code) {
    std::list<std::pair<Translator, Lines>> switches;
    std::size_t lines = 0;
    for (const std::string& name : Switches()) {
      if (CaseOf(name) != code) continue;
      switches.emplace_back(std::piecewise_construct, std::forward_as_tuple(name),
                            std::forward_as_tuple(Capture(name)));
      lines += switches.back().second.size();
    }
    const auto spent = BestOfTurns({[&] {
      for (auto& [translator, capture] : switches) translator.Translate(capture);
    }});
    PrintRow("captures, " + *ToUtf8(layouts::NameOf(static_cast<emCasos>(code))),
             spent[0] / static_cast<double>(lines), "ns a line");
  }
}

}  // namespace conmuta::bench
