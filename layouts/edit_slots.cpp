#include "layouts/edit_parts.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr TextView kItems = u"datos";
constexpr TextView kConstants = u"constantes";

void Rewrite(Editor& editor, const TomlValue& value, const DATO& item) {
  editor.ReplaceNumber(*FindValue(&value, u"pos"), item.Pos);
  editor.ReplaceNumber(*FindValue(&value, u"tam"), item.Tam);
  const bool usual = item.TipoDato == emValorNumerico;
  editor.SetOptional(value, u"tipo", usual ? std::nullopt : std::optional(TypeText(item.TipoDato)),
                     TypeText(emValorNumerico));
}

void Rewrite(Editor& editor, const TomlValue& value, const CTE& constant) {
  editor.ReplaceNumber(*FindValue(&value, u"pos"), constant.Pos);
  editor.ReplaceText(*FindValue(&value, u"texto"), StoredText(constant));
  const bool usual = constant.Tam == constant.Constante.Length();
  const std::string size = std::to_string(constant.Tam);
  editor.SetOptional(value, u"tam", usual ? std::nullopt : std::optional(size), size);
}

template <class Slot>
void Set(Editor& editor, TextView table, const Slot& slot) {
  const TextView name = NameOf(slot.Param);
  const TomlValue* slots = FindValue(&editor.root(), table);
  if (const TomlValue* value = FindValue(slots, name)) return Rewrite(editor, *value, slot);
  if (const DrawnName drawn = FindDrawn(editor.root(), name)) {
    if (Redraw(editor, drawn, slot)) return;
    Undraw(editor, drawn, name);
  }
  editor.Append(slots, ToUtf8(table).value(), ToUtf8(name).value(), CheckedText(slot));
}

void Remove(Editor& editor, TextView table, TextView name) {
  const TomlValue* slots = FindValue(&editor.root(), table);
  if (const TomlEntry* entry = FindEntry(slots, name)) return editor.Remove(*slots, *entry);
  if (const DrawnName drawn = FindDrawn(editor.root(), name)) Undraw(editor, drawn, name);
}

}  // namespace

void Edit(Editor& editor, const SetItem& change) {
  Set(editor, kItems, change.item);
}

void Edit(Editor& editor, const SetConstant& change) {
  Set(editor, kConstants, change.constant);
}

void Edit(Editor& editor, const RemoveItem& change) {
  Remove(editor, kItems, NameOf(change.kind));
}

void Edit(Editor& editor, const RemoveConstant& change) {
  Remove(editor, kConstants, NameOf(change.kind));
}

}  // namespace conmuta::layouts
