// What a layout has on the columns of every line.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "layouts/layout.h"
#include "taller/slot_kind.h"

namespace conmuta::taller {

// Columns that are something: one thing, or another one in calls of another type.
struct ColumnMark {
  int pos = 1;
  int size = 1;
  std::size_t color = 0;  // for ItemGround
  std::vector<SlotKind> kinds;

  bool operator==(const ColumnMark&) const = default;
};

// By columns; those that begin together, the longer first, so that what is drawn later is seen.
std::vector<ColumnMark> MarksOf(const layouts::Layout& layout);

// The color that a slot has there.
std::optional<std::size_t> ColorOf(const std::vector<ColumnMark>& marks, const SlotKind& kind);

}  // namespace conmuta::taller
