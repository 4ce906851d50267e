#include "taller/doubts.h"

#include <algorithm>

#include "layouts/names.h"
#include "layouts/parts.h"
#include "layouts/toml_text.h"
#include "translate/call_slots.h"

namespace conmuta::taller {
namespace {

bool Has(const layouts::Layout& layout, emParamDatoConstante kind) {
  return std::any_of(layout.constants.begin(), layout.constants.end(),
                     [&](const CTE& constant) { return constant.Param == kind; });
}

}  // namespace

Messages DoubtsOf(const layouts::Layout& layout) {
  // What a file was given leave for is not refused, and still said.
  layouts::Findings findings({});
  for (const DATO& item : layout.items) {
    layouts::CheckColumns(item.Pos, item.Tam, {}, layouts::NameOf(item.Param), findings);
  }
  for (const CTE& constant : layout.constants) {
    const TextView name = layouts::NameOf(constant.Param);
    layouts::CheckCanStand(constant, layouts::StoredText(constant), {}, name, findings);
    layouts::CheckColumns(constant.Pos, constant.Tam, {}, name, findings);
  }
  Messages doubts = MessagesOf(findings.Take());
  for (const TypeIdentifiers& type : kTypeIdentifiers) {
    if (!Has(layout, type.also) || Has(layout, type.plain)) continue;
    doubts.push_back({Text(layouts::NameOf(type.also)),
                      {},
                      u"no cuenta sin " + Text(layouts::NameOf(type.plain))});
  }
  return doubts;
}

}  // namespace conmuta::taller
