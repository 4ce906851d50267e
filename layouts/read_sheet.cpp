#include <array>

#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

struct TextRow {
  TextView key;
  Text Sheet::*field;
};
constexpr std::array<TextRow, 5> kTexts = {{{u"cubre", &Sheet::covers},
                                            {u"fecha", &Sheet::date},
                                            {u"duracion", &Sheet::duration},
                                            {u"transferencias", &Sheet::transfers},
                                            {u"prueba", &Sheet::proof}}};

struct ListRow {
  TextView key;
  std::vector<Text> Sheet::*field;
};
constexpr std::array<ListRow, 3> kLists = {{{u"fuentes", &Sheet::sources},
                                            {u"pierde", &Sheet::losses},
                                            {u"alternativas", &Sheet::alternatives}}};

constexpr std::array<TextView, 9> kNames = {u"cubre",   u"fecha",          u"duracion",
                                            u"hora",    u"transferencias", u"prueba",
                                            u"fuentes", u"pierde",         u"alternativas"};
constexpr std::array<TextView, 2> kTimes = {u"inicio", u"fin"};

void ReadTimeOf(const TomlEntry& entry, TextView item, Sheet& sheet, Findings& findings) {
  const Text* word = findings.AsText(entry.value, item);
  if (word == nullptr) return;
  if (*word == kTimes[0]) {
    sheet.time_of = Sheet::TimeOf::kStart;
  } else if (*word == kTimes[1]) {
    sheet.time_of = Sheet::TimeOf::kEnd;
  } else {
    findings.AddUnknown(entry.value.extent.begin, item, *word, kTimes);
  }
}

void ReadKey(const TomlEntry& entry, Sheet& sheet, Findings& findings) {
  const Text item = u"ficha." + entry.key;
  if (entry.key == u"hora") return ReadTimeOf(entry, item, sheet, findings);
  for (const TextRow& row : kTexts) {
    if (entry.key != row.key) continue;
    if (const Text* text = findings.AsText(entry.value, item)) sheet.*row.field = *text;
    return;
  }
  for (const ListRow& row : kLists) {
    if (entry.key != row.key) continue;
    if (auto texts = findings.AsTexts(entry.value, item)) sheet.*row.field = std::move(*texts);
    return;
  }
  findings.AddUnknown(entry.key_extent.begin, u"ficha", entry.key, kNames);
}

}  // namespace

void ReadSheet(const TomlEntry& entry, Layout& layout, Findings& findings) {
  const auto* keys = findings.AsTable(entry.value, entry.key);
  if (keys == nullptr) return;
  for (const TomlEntry& key : *keys) ReadKey(key, layout.sheet, findings);
}

}  // namespace conmuta::layouts
