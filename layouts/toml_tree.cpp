#include "layouts/toml_tree.h"

#include <algorithm>
#include <utility>

#include "layouts/parsable_toml.h"
#include "platform/unicode.h"

// The one file that knows the parser.
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#define TOML_MAX_NESTED_VALUES 16
#include <toml++/toml.h>

namespace conmuta::layouts {
namespace {

Place PlaceOf(const toml::source_position& position) {
  return {static_cast<int>(position.line), static_cast<int>(position.column)};
}

Extent ExtentOf(const toml::source_region& region) {
  return {PlaceOf(region.begin), PlaceOf(region.end)};
}

TomlValue ValueOf(const toml::node& node) {
  using Kind = TomlValue::Kind;
  TomlValue value;
  value.extent = ExtentOf(node.source());
  if (const auto* text = node.as_string()) {
    value.kind = Kind::kText;
    value.text = FromUtf8(text->get());
  } else if (const auto* integer = node.as_integer()) {
    value.kind = Kind::kInteger;
    value.integer = integer->get();
  } else if (const auto* truth = node.as_boolean()) {
    value.kind = Kind::kTruth;
    value.truth = truth->get();
  } else if (const auto* list = node.as_array()) {
    value.kind = Kind::kList;
    for (const toml::node& each : *list) value.list.push_back(ValueOf(each));
  } else if (const auto* table = node.as_table()) {
    value.kind = table->is_inline() ? Kind::kInline : Kind::kTable;
    for (const auto& [key, each] : *table) {
      value.entries.push_back({FromUtf8(key.str()), ExtentOf(key.source()), ValueOf(each)});
    }
    // The parser keeps them by name.
    std::sort(value.entries.begin(), value.entries.end(),
              [](const TomlEntry& a, const TomlEntry& b) {
                return a.key_extent.begin < b.key_extent.begin;
              });
  }
  return value;
}

// The name in "cannot redefine existing integer 'pos'".
Text NameGivenTwice(std::string_view detail) {
  if (detail.find("cannot redefine") == detail.npos) return {};
  const std::size_t begin = detail.find('\'');
  const std::size_t end = detail.rfind('\'');
  if (begin == detail.npos || end <= begin) return {};
  return FromUtf8(detail.substr(begin + 1, end - begin - 1));
}

}  // namespace

ParsedToml ParseToml(std::string_view text) {
  const toml::parse_result result = toml::parse(ParsableToml(text));
  if (!result) {
    const std::string_view detail = result.error().description();
    return TomlError{PlaceOf(result.error().source().begin), NameGivenTwice(detail),
                     std::string(detail)};
  }
  return ValueOf(result.table());
}

}  // namespace conmuta::layouts
