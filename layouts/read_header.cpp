#include <algorithm>

#include "layouts/names.h"
#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

template <std::size_t kWidth>
void ReadField(const TomlEntry& entry, FixedText<kWidth>& field, bool may_be_empty,
               Findings& findings) {
  const Place place = entry.value.extent.begin;
  const Text* text = findings.AsText(entry.value, entry.key);
  if (text == nullptr || !findings.CheckCharacters(*text, place, entry.key)) return;
  if (text->size() > kWidth) {
    findings.Add(MistakeKind::kTooLong, place, entry.key,
                 u"tiene " + ToText(static_cast<int>(text->size())) + u" caracteres",
                 u"hasta " + ToText(kWidth));
    return;
  }
  field.Assign(*text);
  if (field.Empty() && !may_be_empty) {
    findings.Add(MistakeKind::kEmpty, place, entry.key, u"está vacío");
  }
}

void ReadCase(const TomlEntry& entry, emCasos& code, Findings& findings) {
  if (entry.value.kind == TomlValue::Kind::kInteger) {
    if (const auto number = findings.AsCode(entry.value, entry.key)) {
      code = static_cast<emCasos>(*number);
    }
    return;
  }
  const Text* name = findings.AsText(entry.value, entry.key);
  if (name == nullptr) return;
  if (const auto found = FindCase(*name)) {
    code = *found;
  } else {
    findings.AddUnknown(entry.value.extent.begin, entry.key, *name, CaseNames());
  }
}

}  // namespace

bool ReadHeaderKey(const TomlEntry& entry, Layout& layout, Findings& findings) {
  ConfigHeader& header = layout.header;
  if (entry.key == u"marca") {
    ReadField(entry, header.Marca, false, findings);
  } else if (entry.key == u"modelo") {
    ReadField(entry, header.Modelo, false, findings);
  } else if (entry.key == u"comentarios") {
    ReadField(entry, header.Comentarios, true, findings);
  } else if (entry.key == u"separador") {
    ReadField(entry, header.Separador, false, findings);
  } else if (entry.key == u"caso") {
    ReadCase(entry, header.Caso, findings);
  } else {
    return false;
  }
  return true;
}

void FindMissingHeader(const TomlValue& root, Findings& findings) {
  for (const TextView name : {u"marca", u"modelo", u"comentarios", u"separador", u"caso"}) {
    const bool there = std::any_of(root.entries.begin(), root.entries.end(),
                                   [&](const TomlEntry& entry) { return entry.key == name; });
    if (!there) findings.Add(MistakeKind::kMissing, {}, name, u"falta");
  }
}

}  // namespace conmuta::layouts
