#include "layouts/editor.h"

#include <algorithm>

#include "layouts/toml_text.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

// The last place of what a table says without headers of their own.
Place EndOf(const TomlValue& value) {
  Place end = value.extent.end;
  if (value.kind != TomlValue::Kind::kTable) return end;
  for (const TomlEntry& entry : value.entries) end = std::max(end, EndOf(entry.value));
  return end;
}

}  // namespace

const TomlEntry* FindEntry(const TomlValue* table, TextView key) {
  if (table == nullptr) return nullptr;
  const auto found = std::find_if(table->entries.begin(), table->entries.end(),
                                  [&](const TomlEntry& entry) { return entry.key == key; });
  return found != table->entries.end() ? &*found : nullptr;
}

const TomlValue* FindValue(const TomlValue* table, TextView key) {
  const TomlEntry* entry = FindEntry(table, key);
  return entry != nullptr ? &entry->value : nullptr;
}

void Editor::ReplaceText(const TomlValue& value, TextView text) {
  if (value.text == text) return;
  const std::string_view old = source_.At(value.extent);
  const bool fits_single = std::all_of(text.begin(), text.end(), [](char16_t c) {
    return c >= u' ' && c != u'\'' && (c < 0x7F || c >= 0xA0);
  });
  const auto bytes = ToUtf8(text);
  const bool is_single = old.starts_with('\'') && !old.starts_with("'''");
  Replace(value, is_single && fits_single && bytes ? "'" + *bytes + "'" : Quoted(text));
}

void Editor::ReplaceNumber(const TomlValue& value, std::int64_t number) {
  if (value.kind == TomlValue::Kind::kInteger && value.integer == number) return;
  Replace(value, std::to_string(number));
}

void Editor::SetOptional(const TomlValue& table, TextView key,
                         const std::optional<std::string>& value, const std::string& otherwise) {
  const TomlEntry* entry = FindEntry(&table, key);
  if (entry == nullptr) {
    if (value) Append(&table, {}, ToUtf8(key).value(), *value);
    return;
  }
  if (value) {
    if (source_.At(entry->value.extent) != *value) Replace(entry->value, *value);
    return;
  }
  // What was added at the end goes without a trace.
  const TomlEntry& last = table.entries.back();
  const auto place = static_cast<std::size_t>(entry - table.entries.data());
  const bool added = &last == entry && place > 0 &&
                     source_.At({table.entries[place - 1].value.extent.end,
                                 entry->value.extent.begin}) == ", " + ToUtf8(key).value() + " = ";
  if (added || otherwise.empty()) {
    Remove(table, *entry);
  } else if (source_.At(entry->value.extent) != otherwise) {
    Replace(entry->value, otherwise);
  }
}

void Editor::Append(const TomlValue* table, const std::string& path, const std::string& key,
                    const std::string& value) {
  const std::string line = key + " = " + value;
  if (table != nullptr && table->kind == TomlValue::Kind::kInline) {
    if (table->entries.empty()) return source_.Replace(table->extent, "{ " + line + " }");
    return source_.Insert(table->entries.back().value.extent.end, ", " + line);
  }
  if (table == nullptr || !HasHeader(*table)) {
    return source_.AppendLines({"[" + path + "]", line});
  }
  // Tables with headers of their own come behind the keys.
  int last = table->extent.begin.line;
  for (const TomlEntry& entry : table->entries) {
    if (IsUnderHeader(entry.value)) continue;
    last = std::max(last, EndOf(entry.value).line);
  }
  source_.InsertLine(last, line);
}

bool Editor::IsUnderHeader(const TomlValue& value) const {
  return value.kind == TomlValue::Kind::kTable && source_.First(value.extent.begin) == '[';
}

// One that is only named on the way to others begins where the first of them does.
bool Editor::HasHeader(const TomlValue& table) const {
  return IsUnderHeader(table) &&
         std::none_of(table.entries.begin(), table.entries.end(), [&](const TomlEntry& entry) {
           return entry.value.extent.begin == table.extent.begin;
         });
}

void Editor::Remove(const TomlValue& table, const TomlEntry& entry) {
  if (table.kind == TomlValue::Kind::kInline) {
    std::vector<Extent> siblings;
    for (const TomlEntry& each : table.entries) {
      siblings.push_back({each.key_extent.begin, each.value.extent.end});
    }
    return RemoveBetweenCommas(siblings, static_cast<std::size_t>(&entry - table.entries.data()));
  }
  source_.RemoveLines(entry.key_extent.begin.line, EndOf(entry.value).line);
}

void Editor::Remove(const TomlValue& list, std::size_t element) {
  std::vector<Extent> siblings;
  for (const TomlValue& each : list.list) siblings.push_back(each.extent);
  RemoveBetweenCommas(siblings, element);
}

void Editor::RemoveBetweenCommas(const std::vector<Extent>& siblings, std::size_t which) {
  Extent removed = siblings[which];
  if (which > 0) {
    removed.begin = siblings[which - 1].end;
  } else if (siblings.size() > 1) {
    removed.end = siblings[1].begin;
  }
  source_.Replace(removed, {});
}

}  // namespace conmuta::layouts
