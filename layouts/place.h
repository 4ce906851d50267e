// Where something stands in a text file.
#pragma once

#include <compare>

namespace conmuta::layouts {

// Line and column, both from 1; columns count characters, not bytes.
struct Place {
  int line = 1;
  int column = 1;

  auto operator<=>(const Place&) const = default;
};

// From the first character to the one behind the last.
struct Extent {
  Place begin;
  Place end;

  bool operator==(const Extent&) const = default;
};

}  // namespace conmuta::layouts
