#include "layouts/edit_parts.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

WiringMask MaskOf(const TomlValue& pins) {
  if (pins.kind == TomlValue::Kind::kInteger) return PinMask(static_cast<int>(pins.integer));
  WiringMask mask = 0;
  for (const TomlValue& pin : pins.list) mask |= PinMask(static_cast<int>(pin.integer));
  return mask;
}

}  // namespace

void Edit(Editor& editor, const SetWires& change) {
  const TomlValue* cables = FindValue(&editor.root(), u"cable");
  const TomlValue* cable = FindValue(cables, NameOf(change.pair));
  const Text pin = ToText(change.pin);
  const TomlValue* masks = FindValue(cable, u"mascaras");
  if (const TomlEntry* mask = FindEntry(masks, pin)) {
    return editor.ReplaceNumber(mask->value, change.pins);
  }
  const TomlEntry* pins = FindEntry(cable, pin);
  if (pins == nullptr) {
    if (change.pins == 0) return;
    return editor.Append(cable, "cable." + ToUtf8(NameOf(change.pair)).value(),
                         std::to_string(change.pin), PinsText(change.pins));
  }
  if (change.pins == 0) return editor.Remove(*cable, *pins);
  if (MaskOf(pins->value) != change.pins) editor.Replace(pins->value, PinsText(change.pins));
}

}  // namespace conmuta::layouts
