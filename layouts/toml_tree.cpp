#include "layouts/toml_tree.h"

#include <algorithm>
#include <utility>

#include "layouts/parsable_toml.h"
#include "layouts/source_text.h"
#include "platform/unicode.h"

// What the parser throws where it would go on in an undefined way: in some wrong texts toml++ 3.3
// relies on what it has not looked at, as in "[ <I>" and "[1,}".
namespace conmuta::layouts {
struct ParserGaveUp {};
}  // namespace conmuta::layouts

// The one file that knows the parser.
#undef NDEBUG
#define TOML_ASSERT(expr) ((expr) ? void() : throw ::conmuta::layouts::ParserGaveUp())
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#define TOML_MAX_NESTED_VALUES 16
#ifndef __clang__
#pragma GCC diagnostic ignored "-Wterminate"  // what cannot fail in it is checked, too
#endif
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

bool GivesUp(std::string_view text) {
  try {
    (void)toml::parse(text);
    return false;
  } catch (const ParserGaveUp&) {
    return true;
  }
}

// The last character of the shortest beginning of the text that the parser gives up on.
Place WhereItGivesUp(std::string_view text) {
  std::size_t good = 0;
  std::size_t bad = text.size();
  while (bad - good > 1) {
    const std::size_t middle = good + (bad - good) / 2;
    (GivesUp(text.substr(0, middle)) ? bad : good) = middle;
  }
  return PlaceBehind(text.substr(0, bad - 1));
}

}  // namespace

ParsedToml ParseToml(std::string_view text) {
  const std::string parsable = ParsableToml(text);
  try {
    const toml::parse_result result = toml::parse(parsable);
    if (result) return ValueOf(result.table());
    const std::string_view detail = result.error().description();
    return TomlError{PlaceOf(result.error().source().begin), NameGivenTwice(detail),
                     std::string(detail)};
  } catch (const ParserGaveUp&) {
    return TomlError{WhereItGivesUp(parsable), {}, "the parser gives up"};
  }
}

}  // namespace conmuta::layouts
