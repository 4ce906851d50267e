#include "layouts/edit_layout.h"

#include <algorithm>

#include "layouts/edit_parts.h"
#include "layouts/names.h"
#include "layouts/read_layout.h"

namespace conmuta::layouts {
namespace {

template <class Slot>
void Put(std::vector<Slot>& slots, const Slot& slot) {
  const auto found = std::find_if(slots.begin(), slots.end(),
                                  [&](const Slot& each) { return each.Param == slot.Param; });
  if (found != slots.end()) {
    *found = slot;
  } else {
    slots.push_back(slot);
  }
}

// The same changes to the values of a layout.
void Change(Layout& layout, const SetItem& change) {
  Put(layout.items, change.item);
}
void Change(Layout& layout, const SetConstant& change) {
  CTE constant = change.constant;
  constant.TipoDato = emValorConstante;
  Put(layout.constants, constant);
}
void Change(Layout& layout, const RemoveItem& change) {
  std::erase_if(layout.items, [&](const DATO& item) { return item.Param == change.kind; });
}
void Change(Layout& layout, const RemoveConstant& change) {
  std::erase_if(layout.constants, [&](const CTE& each) { return each.Param == change.kind; });
}
void Change(Layout& layout, const SetText& change) {
  ConfigHeader& header = layout.header;
  switch (change.key) {
    case SetText::Key::kBrand:
      header.Marca.Assign(change.text);
      return;
    case SetText::Key::kModel:
      header.Modelo.Assign(change.text);
      return;
    case SetText::Key::kComments:
      header.Comentarios.Assign(change.text);
      return;
    case SetText::Key::kSeparator:
      header.Separador.Assign(change.text);
      return;
  }
}
void Change(Layout& layout, const SetCase& change) {
  layout.header.Caso = change.code;
}
void Change(Layout& layout, const SetWires& change) {
  layout.header.Cables.Table(change.pair)[static_cast<std::size_t>(change.pin)] = change.pins;
}

template <class Slot>
void SortByKind(std::vector<Slot>& slots) {
  std::sort(slots.begin(), slots.end(),
            [](const Slot& a, const Slot& b) { return a.Param < b.Param; });
}

// What a layout says, whatever its order and however it says it.
Layout Meaning(Layout layout) {
  SortByKind(layout.items);
  SortByKind(layout.constants);
  layout.drawings.clear();
  return layout;
}

bool IsPossible(const LayoutChange& change) {
  if (const auto* item = std::get_if<SetItem>(&change)) return DATOValido(item->item);
  if (const auto* constant = std::get_if<SetConstant>(&change)) {
    return constant->constant.Pos != 0 && IsKind<CTE>(constant->constant.Param);
  }
  const auto* wires = std::get_if<SetWires>(&change);
  return wires == nullptr ||
         (IsConnectorPair(wires->pair) && wires->pin >= 1 && wires->pin <= LeftPins(wires->pair));
}

// Whether the value is wrong that was to be set, not the way in which it was.
bool IsOfTheValue(MistakeKind kind) {
  using enum MistakeKind;
  return kind == kOutOfRange || kind == kBeyondLine || kind == kTooLong || kind == kEmpty ||
         kind == kNotInCodePage || kind == kNeverStands;
}

Mistake CannotChange(TextView file, Text what) {
  return {MistakeKind::kCannotChange, Text(file), {}, {}, std::move(what), {}};
}

}  // namespace

LayoutEdit EditLayout(std::string_view toml, const LayoutChange& change, TextView file) {
  const ParsedToml parsed = ParseToml(toml);
  auto before = ReadLayout(parsed, file);
  if (!before.layout) return {std::nullopt, std::move(before.mistakes)};
  if (!IsPossible(change)) {
    return {std::nullopt, {CannotChange(file, u"no hay tal dato, constante o pata")}};
  }
  Layout wanted = *before.layout;
  std::visit([&](const auto& what) { Change(wanted, what); }, change);
  wanted = Meaning(std::move(wanted));
  if (wanted == Meaning(*before.layout)) return {std::string(toml), {}};

  Editor editor(std::get<TomlValue>(parsed), toml);
  std::visit([&](const auto& what) { Edit(editor, what); }, change);
  std::string changed = editor.Changed();

  auto after = ReadLayout(changed, file);
  if (!after.mistakes.empty() && IsOfTheValue(after.mistakes[0].kind)) {
    return {std::nullopt, std::move(after.mistakes)};
  }
  if (!after.layout || Meaning(*after.layout) != wanted) {
    return {std::nullopt,
            {CannotChange(file,
                          u"las tablas están escritas de un modo que no deja cambiar una "
                          u"sola cosa")}};
  }
  return {std::move(changed), {}};
}

}  // namespace conmuta::layouts
