// The tools of those who change a layout file: its tree over its text.
#pragma once

#include <optional>
#include <string>

#include "layouts/source_text.h"
#include "layouts/toml_tree.h"

namespace conmuta::layouts {

// The entry of that key in a table, or null. Null for no table, too.
const TomlEntry* FindEntry(const TomlValue* table, TextView key);
const TomlValue* FindValue(const TomlValue* table, TextView key);

class Editor {
 public:
  Editor(const TomlValue& root, std::string_view toml) : root_(root), source_(toml) {}

  const TomlValue& root() const { return root_; }
  std::string Changed() const { return source_.Changed(); }

  // What stands there.
  std::string Source(const TomlValue& value) const { return std::string(source_.At(value.extent)); }

  void Replace(const TomlValue& value, std::string by) {
    source_.Replace(value.extent, std::move(by));
  }
  // With a text, between quotes like those that are there if it can be.
  void ReplaceText(const TomlValue& value, TextView text);
  // With a number, unless it is there already.
  void ReplaceNumber(const TomlValue& value, std::int64_t number);

  // Gives a key of a table that value, makes it, or takes it away when there is none. A key that
  // `otherwise` is a value for keeps its place with that one, unless it was added at the end.
  void SetOptional(const TomlValue& table, TextView key, const std::optional<std::string>& value,
                   const std::string& otherwise);

  // Behind the last key of the table of that path, which is made if it is not there.
  void Append(const TomlValue* table, const std::string& path, const std::string& key,
              const std::string& value);
  void Remove(const TomlValue& table, const TomlEntry& entry);
  // One element of a list.
  void Remove(const TomlValue& list, std::size_t element);

 private:
  bool IsUnderHeader(const TomlValue& value) const;
  bool HasHeader(const TomlValue& table) const;
  void RemoveBetweenCommas(const std::vector<Extent>& siblings, std::size_t which);

  const TomlValue& root_;
  SourceText source_;
};

}  // namespace conmuta::layouts
