#include "layouts/read_layout.h"

#include <array>

#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 10> kRootNames = {
    u"marca", u"modelo", u"comentarios", u"separador", u"caso",
    u"ficha", u"datos",  u"constantes",  u"dibujo",    u"cable"};

void ReadRoot(const TomlValue& root, Layout& layout, Findings& findings) {
  Slots slots(findings);
  for (const TomlEntry& entry : root.entries) {
    if (ReadHeaderKey(entry, layout, findings)) continue;
    if (entry.key == u"ficha") {
      ReadSheet(entry, layout, findings);
    } else if (entry.key == u"datos") {
      ReadItems(entry, slots, findings);
    } else if (entry.key == u"constantes") {
      ReadConstants(entry, slots, findings);
    } else if (entry.key == u"dibujo") {
      ReadDrawings(entry, layout, slots, findings);
    } else if (entry.key == u"cable") {
      ReadCables(entry, layout, findings);
    } else {
      findings.AddUnknown(entry.key_extent.begin, {}, entry.key, kRootNames);
    }
  }
  slots.MoveInto(layout);
  FindMissingHeader(root, findings);
}

void AddSyntaxError(const TomlError& error, Findings& findings) {
  if (error.twice.empty()) {
    findings.Add(MistakeKind::kSyntax, error.place, {},
                 u"error de sintaxis en la columna " + ToText(error.place.column));
  } else {
    findings.Add(MistakeKind::kGivenTwice, error.place, error.twice, u"se da dos veces");
  }
}

}  // namespace

LayoutReading ReadLayout(std::string_view toml, TextView file) {
  return ReadLayout(ParseToml(toml), file);
}

LayoutReading ReadLayout(const ParsedToml& parsed, TextView file) {
  Findings findings(file);
  LayoutReading reading;
  Layout layout;
  if (const auto* root = std::get_if<TomlValue>(&parsed)) {
    ReadRoot(*root, layout, findings);
  } else {
    AddSyntaxError(std::get<TomlError>(parsed), findings);
  }
  reading.mistakes = findings.Take();
  SortByPlace(reading.mistakes);
  if (reading.mistakes.empty()) reading.layout = std::move(layout);
  return reading;
}

}  // namespace conmuta::layouts
