// A TOML text as values that know where they stand, in their order of appearance.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "layouts/place.h"
#include "platform/text.h"

namespace conmuta::layouts {

struct TomlEntry;

struct TomlValue {
  enum class Kind : std::uint8_t {
    kText,
    kInteger,
    kTruth,
    kList,
    kTable,   // under a header of its own, or only named on the way to others
    kInline,  // a table between braces
    kOther,   // fractions and dates, which no layout has
  };

  bool IsTable() const { return kind == Kind::kTable || kind == Kind::kInline; }

  Kind kind = Kind::kOther;
  Extent extent;  // of a table under a header: the header
  Text text;
  std::int64_t integer = 0;
  bool truth = false;
  std::vector<TomlValue> list;
  std::vector<TomlEntry> entries;  // of a table
};

struct TomlEntry {
  Text key;
  Extent key_extent;
  TomlValue value;
};

struct TomlError {
  Place place;
  Text twice;          // the key that is given a second time there; empty for any other error
  std::string detail;  // in the parser's words
};

// The root table. Takes any bytes; tables deeper than sixteen levels are an error, too.
using ParsedToml = std::variant<TomlValue, TomlError>;
ParsedToml ParseToml(std::string_view text);

}  // namespace conmuta::layouts
