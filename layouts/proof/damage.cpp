#include "layouts/proof/damage.h"

namespace conmuta::layouts {

std::vector<DamagedLine> DamagedForms(const std::vector<CaptureLine>& lines, std::size_t index) {
  const Text& line = lines[index].text;
  const Text stripped(TrimRight(line));
  std::vector<DamagedLine> forms;
  if (!line.empty()) {
    // Cut behind its last sign it has lost blanks only.
    for (std::size_t size = 0; size < stripped.size(); ++size) {
      forms.push_back({Damage::kCut, line.substr(0, size)});
    }
    forms.push_back({Damage::kHeadLost, line.substr(1)});
    constexpr TextView kOne(u"\0", 1);
    constexpr TextView kTwo = u"\x10\x11";
    forms.push_back({Damage::kControl, Text(kOne) + line});
    forms.push_back({Damage::kControl, Text(kTwo) + line});
    if (stripped != line) forms.push_back({Damage::kBlanks, stripped});
  }
  if (index + 1 < lines.size() && !line.empty() && !lines[index + 1].text.empty()) {
    forms.push_back({Damage::kGlued, line + lines[index + 1].text, true});
    if (stripped != line) {
      forms.push_back({Damage::kGlued, stripped + lines[index + 1].text, true});
    }
  }
  return forms;
}

}  // namespace conmuta::layouts
