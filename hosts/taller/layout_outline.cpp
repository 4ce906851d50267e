#include "taller/layout_outline.h"

#include <algorithm>

#include "layouts/findings.h"
#include "layouts/numbers.h"
#include "layouts/toml_text.h"
#include "taller/slot_changes.h"

namespace conmuta::taller {
namespace {

template <class Slot>
const Slot* Find(const std::vector<Slot>& slots, typename Slot::Kind kind) {
  const auto slot =
      std::find_if(slots.begin(), slots.end(), [&](const Slot& one) { return one.Param == kind; });
  return slot != slots.end() ? &*slot : nullptr;
}

Text TypeOf(emTipoDato type) {
  const TextView name = layouts::NameOf(type);
  return name.empty() ? ToText(std::int64_t{type}) : Text(name);
}

// A number from 1 to the last column, or why it is none.
std::optional<std::uint8_t> Number(TextView typed, TextView what, Text& doubt) {
  const TextView digits = Trim(typed);
  const auto number = layouts::ReadDigitsOnly(digits);
  if (number && *number >= 1 && *number <= layouts::kLastColumn) {
    return static_cast<std::uint8_t>(*number);
  }
  doubt = Text(what);
  doubt += digits.empty() ? u": falta" : u" va de 1 a " + ToText(layouts::kLastColumn);
  return std::nullopt;
}

}  // namespace

bool OutlineGroup::InUse() const {
  return std::any_of(rows.begin(), rows.end(), [](const OutlineRow& row) { return row.in_use; });
}

std::optional<LayoutOutline::Fields> LayoutOutline::Present(const SlotKind& kind) const {
  const layouts::Layout& layout = document_.layout();
  if (const auto* item = std::get_if<emParamDato>(&kind)) {
    const DATO* slot = Find(layout.items, *item);
    if (slot == nullptr) return std::nullopt;
    return Fields{ToText(slot->Pos), ToText(slot->Tam), {}, TypeOf(slot->TipoDato), {}};
  }
  const CTE* slot = Find(layout.constants, std::get<emParamDatoConstante>(kind));
  if (slot == nullptr) return std::nullopt;
  return Fields{ToText(slot->Pos), {}, Text(layouts::StoredText(*slot)), {}, {}};
}

LayoutOutline::Fields LayoutOutline::FieldsOf(const SlotKind& kind) const {
  if (HasDrafts()) {
    if (const auto draft = drafts_.find(kind); draft != drafts_.end()) return draft->second;
  }
  return Present(kind).value_or(Fields());
}

OutlineRow LayoutOutline::RowOf(const SlotKind& kind, const std::vector<ColumnMark>& marks,
                                const Messages& doubts) const {
  Fields fields = FieldsOf(kind);
  OutlineRow row;
  row.kind = kind;
  row.name = ShortNameOf(kind);
  row.in_use = Present(kind).has_value();
  row.pos = std::move(fields.pos);
  row.size = std::move(fields.size);
  row.text = std::move(fields.text);
  row.type = std::move(fields.type);
  row.color = ColorOf(marks, kind);
  row.doubt = std::move(fields.doubt);
  const auto doubt = std::find_if(doubts.begin(), doubts.end(), [&](const Message& message) {
    return message.item == NameOf(kind);
  });
  if (row.doubt.empty() && doubt != doubts.end()) row.doubt = doubt->text;
  return row;
}

std::vector<OutlineGroup> LayoutOutline::Groups() const {
  const auto marks = MarksOf(document_.layout());
  const Messages doubts = document_.Doubts();
  std::vector<OutlineGroup> groups;
  for (std::size_t i = 0; i < kSlotGroups; ++i) {
    OutlineGroup group{static_cast<SlotGroup>(i), {}};
    for (const SlotKind& kind : KindsOf(group.group)) {
      group.rows.push_back(RowOf(kind, marks, doubts));
    }
    groups.push_back(std::move(group));
  }
  return groups;
}

Messages LayoutOutline::Type(const SlotKind& kind, Field field, TextView typed) {
  Fields fields = FieldsOf(kind);
  switch (field) {
    case Field::kPos:
      fields.pos = typed;
      break;
    case Field::kSize:
      fields.size = typed;
      break;
    case Field::kText:
      fields.text = typed;
      break;
    case Field::kType:
      fields.type = typed;
      break;
  }
  if (!HasDrafts()) drafts_.clear();
  drafts_.erase(kind);
  Messages messages = Apply(kind, fields);
  if (!messages.empty()) {
    fields.doubt = messages[0].text;
    drafts_[kind] = std::move(fields);
  }
  revision_ = document_.revision();
  return messages;
}

Messages LayoutOutline::Apply(const SlotKind& kind, const Fields& fields) {
  Text doubt;
  const auto say = [&] { return Messages{{Text(NameOf(kind)), {}, doubt}}; };
  const auto pos = Number(fields.pos, u"la posición", doubt);
  if (!pos) return say();
  if (const auto* item = std::get_if<emParamDato>(&kind)) {
    const auto size = Number(fields.size, u"el tamaño", doubt);
    if (!size) return say();
    const DATO* present = Find(document_.layout().items, *item);
    emTipoDato type = present != nullptr ? present->TipoDato : emValorNumerico;
    if (!fields.type.empty() && fields.type != TypeOf(type)) {
      const auto named = layouts::FindType(fields.type);
      if (!named) return doubt = u"no hay tal tipo", say();
      type = *named;
    }
    return document_.Apply(layouts::SetItem{{*item, type, *pos, *size}}, Document::As::kTyping);
  }
  if (fields.text.empty()) return doubt = u"el texto: falta", say();
  return ChangeConstant(document_, std::get<emParamDatoConstante>(kind), *pos, fields.text,
                        Document::As::kTyping);
}

Messages LayoutOutline::Remove(const SlotKind& kind) {
  drafts_.erase(kind);
  if (const auto* item = std::get_if<emParamDato>(&kind)) {
    return document_.Apply(layouts::RemoveItem{*item});
  }
  return document_.Apply(layouts::RemoveConstant{std::get<emParamDatoConstante>(kind)});
}

}  // namespace conmuta::taller
