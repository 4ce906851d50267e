#include "layouts/findings.h"

#include <limits>
#include <utility>

#include "layouts/nearest.h"
#include "layouts/windows1252.h"

namespace conmuta::layouts {

void Findings::Add(MistakeKind kind, Place place, TextView item, Text what, Text allowed) {
  mistakes_.push_back({kind, file_, place, Text(item), std::move(what), std::move(allowed)});
}

void Findings::AddUnknown(Place place, TextView item, TextView written,
                          std::span<const TextView> names) {
  constexpr std::size_t kFew = 10;
  Text what = Text(u"no se conoce «").append(written).append(u"»");
  if (const TextView nearest = Nearest(written, names); !nearest.empty()) {
    what.append(u"; ¿quiso decir «").append(nearest).append(u"»?");
  }
  Text allowed;
  if (names.size() <= kFew) {
    for (const TextView name : names) allowed.append(allowed.empty() ? u"" : u", ").append(name);
  }
  Add(MistakeKind::kUnknownName, place, item, std::move(what), std::move(allowed));
}

const Text* Findings::AsText(const TomlValue& value, TextView item) {
  if (value.kind == TomlValue::Kind::kText) return &value.text;
  Add(MistakeKind::kWrongType, value.extent.begin, item, u"debe ser un texto entre comillas");
  return nullptr;
}

std::optional<std::int64_t> Findings::AsInteger(const TomlValue& value, TextView item) {
  if (value.kind == TomlValue::Kind::kInteger) return value.integer;
  Add(MistakeKind::kWrongType, value.extent.begin, item, u"debe ser un número entero");
  return std::nullopt;
}

std::optional<bool> Findings::AsTruth(const TomlValue& value, TextView item) {
  if (value.kind == TomlValue::Kind::kTruth) return value.truth;
  Add(MistakeKind::kWrongType, value.extent.begin, item, u"debe ser true o false");
  return std::nullopt;
}

std::optional<std::int32_t> Findings::AsCode(const TomlValue& value, TextView item) {
  const auto code = AsInteger(value, item);
  if (!code) return std::nullopt;
  if (std::in_range<std::int32_t>(*code)) return static_cast<std::int32_t>(*code);
  Add(MistakeKind::kOutOfRange, value.extent.begin, item,
      u"el código " + ToText(*code) + u" no cabe en 32 bits");
  return std::nullopt;
}

const std::vector<TomlEntry>* Findings::AsTable(const TomlValue& value, TextView item) {
  if (value.IsTable()) return &value.entries;
  Add(MistakeKind::kWrongType, value.extent.begin, item, u"debe ser una tabla");
  return nullptr;
}

std::optional<std::vector<Text>> Findings::AsTexts(const TomlValue& value, TextView item) {
  if (value.kind != TomlValue::Kind::kList) {
    Add(MistakeKind::kWrongType, value.extent.begin, item, u"debe ser una lista de textos");
    return std::nullopt;
  }
  std::vector<Text> texts;
  for (const TomlValue& each : value.list) {
    if (const Text* text = AsText(each, item)) texts.push_back(*text);
  }
  if (texts.size() != value.list.size()) return std::nullopt;
  return texts;
}

bool Findings::CheckCharacters(TextView text, Place place, TextView item) {
  std::size_t at = FindNotInWindows1252(text);
  if (at == TextView::npos) return true;
  // Both halves of a character beyond the basic plane.
  const std::size_t size = (text[at] & 0xFC00) == 0xD800 ? 2 : 1;
  Add(MistakeKind::kNotInCodePage, place, item,
      Text(u"«").append(text.substr(at, size)).append(u"» no existe en Windows-1252"));
  return false;
}

}  // namespace conmuta::layouts
