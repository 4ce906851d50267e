#include <algorithm>
#include <array>

#include "layouts/names.h"
#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 4> kItemKeys = {u"pos", u"tam", u"tipo", u"sin_revisar"};
constexpr std::array<TextView, 4> kConstantKeys = {u"pos", u"texto", u"tam", u"sin_revisar"};

// What stands between the braces of an item or a constant, as written.
struct Written {
  Place place;  // of the name
  Place pos_place;
  std::optional<std::int64_t> pos;
  std::optional<std::int64_t> size;
  std::optional<emTipoDato> type;
  const TomlValue* text = nullptr;
  bool unchecked = false;
};

void CheckNumber(std::optional<std::int64_t>& number, std::int64_t least, std::int64_t most,
                 TextView noun, Place place, TextView item, Findings& findings) {
  if (!number || (*number >= least && *number <= most)) return;
  Text what = Text(noun).append(u" ").append(ToText(*number));
  what += *number < least ? u" es menor que " + ToText(least) : u" pasa de " + ToText(most);
  findings.Add(MistakeKind::kOutOfRange, place, item, std::move(what),
               u"de " + ToText(least) + u" a " + ToText(most));
  number.reset();
}

// Reads what the keys say; nothing when one of them is wrong or missing.
std::optional<Written> ReadKeys(const TomlEntry& entry, std::span<const TextView> names,
                                std::int64_t least_size, Findings& findings) {
  const TextView item = entry.key;
  const std::size_t before = findings.count();
  const auto* keys = findings.AsTable(entry.value, item);
  if (keys == nullptr) return std::nullopt;

  Written written;
  written.place = written.pos_place = entry.key_extent.begin;
  Place size_place = written.place;
  bool has_pos = false;
  bool has_size = false;
  for (const TomlEntry& key : *keys) {
    const Place place = key.value.extent.begin;
    if (std::find(names.begin(), names.end(), key.key) == names.end()) {
      findings.AddUnknown(key.key_extent.begin, item, key.key, names);
    } else if (key.key == u"pos") {
      written.pos = findings.AsInteger(key.value, item);
      written.pos_place = place;
      has_pos = true;
    } else if (key.key == u"tam") {
      written.size = findings.AsInteger(key.value, item);
      size_place = place;
      has_size = true;
    } else if (key.key == u"tipo") {
      written.type = ReadType(key.value, item, findings);
    } else if (key.key == u"texto") {
      if (findings.AsText(key.value, item) != nullptr) written.text = &key.value;
    } else if (const auto flag = findings.AsTruth(key.value, item)) {
      written.unchecked = *flag;
    }
  }
  const std::int64_t most = written.unchecked ? UINT8_MAX : kLastColumn;
  CheckNumber(written.pos, 1, most, u"la posición", written.pos_place, item, findings);
  CheckNumber(written.size, least_size, most, u"el tamaño", size_place, item, findings);
  const auto need = [&](bool there, TextView name) {
    if (there) return;
    findings.Add(MistakeKind::kMissing, written.place, item,
                 Text(u"falta «").append(name).append(u"»"));
  };
  need(has_pos, u"pos");
  if (names[1] == u"tam") need(has_size, u"tam");
  if (findings.count() != before) return std::nullopt;
  return written;
}

void ReadItem(const TomlEntry& entry, emParamDato kind, Slots& slots, Findings& findings) {
  const auto written = ReadKeys(entry, kItemKeys, 1, findings);
  if (!written) return;
  if (!written->unchecked &&
      !CheckColumns(*written->pos, *written->size, written->pos_place, entry.key, findings)) {
    return;
  }
  slots.Take(DATO{.Param = kind,
                  .TipoDato = written->type.value_or(emValorNumerico),
                  .Pos = static_cast<std::uint8_t>(*written->pos),
                  .Tam = static_cast<std::uint8_t>(*written->size)},
             written->place);
}

// The text of a constant; nothing when no constant can have it.
const Text* ReadConstantText(const TomlEntry& entry, const TomlValue* value, Findings& findings) {
  constexpr std::size_t kMost = decltype(CTE::Constante)::kSize;
  if (value == nullptr) {
    const bool there = std::any_of(entry.value.entries.begin(), entry.value.entries.end(),
                                   [](const TomlEntry& key) { return key.key == u"texto"; });
    if (!there) {
      findings.Add(MistakeKind::kMissing, entry.key_extent.begin, entry.key, u"falta «texto»");
    }
    return nullptr;
  }
  const Text& text = value->text;
  const Place place = value->extent.begin;
  if (!findings.CheckCharacters(text, place, entry.key)) return nullptr;
  if (text.size() > kMost) {
    findings.Add(MistakeKind::kTooLong, place, entry.key,
                 u"el texto tiene " + ToText(static_cast<int>(text.size())) + u" caracteres",
                 u"hasta " + ToText(kMost));
    return nullptr;
  }
  if (std::all_of(text.begin(), text.end(), [](char16_t c) { return c == kNul; })) {
    findings.Add(MistakeKind::kEmpty, place, entry.key, u"el texto está vacío");
    return nullptr;
  }
  return &text;
}

void ReadConstant(const TomlEntry& entry, emParamDatoConstante kind, Slots& slots,
                  Findings& findings) {
  const auto written = ReadKeys(entry, kConstantKeys, 0, findings);
  const TomlValue* value = written ? written->text : nullptr;
  if (!written) return;
  const Text* text = ReadConstantText(entry, value, findings);
  if (text == nullptr) return;

  CTE constant;
  constant.Param = kind;
  constant.TipoDato = emValorConstante;
  constant.Pos = static_cast<std::uint8_t>(*written->pos);
  constant.Constante.Assign(*text);
  constant.Tam = static_cast<std::uint8_t>(
      written->size.value_or(static_cast<std::int64_t>(constant.Constante.Length())));
  if (!written->unchecked) {
    if (!CheckCanStand(constant, *text, value->extent.begin, entry.key, findings) ||
        !CheckColumns(constant.Pos, constant.Tam, written->pos_place, entry.key, findings)) {
      return;
    }
  }
  slots.Take(constant, written->place);
}

}  // namespace

void Slots::Take(const DATO& item, Place place) {
  if (IsNew(NameOf(item.Param), place)) items_.emplace_back(place, item);
}

void Slots::Take(const CTE& constant, Place place) {
  if (IsNew(NameOf(constant.Param), place)) constants_.emplace_back(place, constant);
}

template <class Slot>
std::vector<Slot> Slots::ByPlace(std::vector<std::pair<Place, Slot>>& placed) {
  std::stable_sort(placed.begin(), placed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Slot> slots;
  for (auto& [place, slot] : placed) slots.push_back(slot);
  return slots;
}

void Slots::MoveInto(Layout& layout) {
  layout.items = ByPlace(items_);
  layout.constants = ByPlace(constants_);
}

bool Slots::IsNew(TextView name, Place place) {
  const auto [found, is_new] = places_.emplace(name, place);
  if (is_new) return true;
  const auto [first, second] = std::minmax(found->second, place);
  findings_.Add(MistakeKind::kGivenTwice, second, name,
                u"ya está en la línea " + ToText(first.line));
  return false;
}

std::optional<emTipoDato> ReadType(const TomlValue& value, TextView item, Findings& findings) {
  if (value.kind == TomlValue::Kind::kInteger) {
    const auto code = findings.AsCode(value, item);
    if (!code) return std::nullopt;
    if (*code != emNoDefinido) return static_cast<emTipoDato>(*code);
    findings.Add(MistakeKind::kOutOfRange, value.extent.begin, item,
                 u"el tipo 0 es el de un dato que no está");
    return std::nullopt;
  }
  const Text* name = findings.AsText(value, item);
  if (name == nullptr) return std::nullopt;
  const auto type = FindType(*name);
  if (!type) findings.AddUnknown(value.extent.begin, item, *name, TypeNames());
  return type;
}

bool CheckColumns(std::int64_t pos, std::int64_t size, Place place, TextView item,
                  Findings& findings) {
  const std::int64_t last = pos + size - 1;
  if (last <= kLastColumn) return true;
  findings.Add(MistakeKind::kBeyondLine, place, item,
               u"las columnas " + ToText(pos) + u" a " + ToText(last) + u" pasan de la " +
                   ToText(kLastColumn),
               u"más allá, cada línea da el error 6");
  return false;
}

bool CheckCanStand(const CTE& constant, TextView text, Place place, TextView item,
                   Findings& findings) {
  Text what;
  if (constant.Tam != constant.Constante.Length()) {
    what = u"nunca coincide: el tamaño es " + ToText(constant.Tam) + u" y el texto tiene " +
           ToText(static_cast<int>(constant.Constante.Length())) + u" caracteres";
  } else if (std::any_of(text.begin(), text.end(), [](char16_t c) { return c < u' '; })) {
    what = u"nunca coincide: los caracteres de control se quitan de la línea antes de leerla";
  } else {
    return true;
  }
  findings.Add(MistakeKind::kNeverStands, place, item, std::move(what));
  return false;
}

void ReadItems(const TomlEntry& entry, Slots& slots, Findings& findings) {
  const auto* items = findings.AsTable(entry.value, entry.key);
  if (items == nullptr) return;
  for (const TomlEntry& item : *items) {
    if (const auto kind = FindItem(item.key)) {
      ReadItem(item, *kind, slots, findings);
    } else {
      findings.AddUnknown(item.key_extent.begin, entry.key, item.key, ItemNames());
    }
  }
}

void ReadConstants(const TomlEntry& entry, Slots& slots, Findings& findings) {
  const auto* constants = findings.AsTable(entry.value, entry.key);
  if (constants == nullptr) return;
  for (const TomlEntry& constant : *constants) {
    if (const auto kind = FindConstant(constant.key)) {
      ReadConstant(constant, *kind, slots, findings);
    } else {
      findings.AddUnknown(constant.key_extent.begin, entry.key, constant.key, ConstantNames());
    }
  }
}

}  // namespace conmuta::layouts
