#include "taller/column_marks.h"

#include <algorithm>

namespace conmuta::taller {
namespace {

template <class Slot>
void Add(const std::vector<Slot>& slots, std::vector<ColumnMark>& marks) {
  for (const Slot& slot : slots) {
    auto mark = std::find_if(marks.begin(), marks.end(), [&](const ColumnMark& known) {
      return known.pos == slot.Pos && known.size == slot.Tam;
    });
    if (mark == marks.end()) mark = marks.insert(mark, {slot.Pos, slot.Tam, 0, {}});
    mark->kinds.emplace_back(slot.Param);
  }
}

}  // namespace

std::vector<ColumnMark> MarksOf(const layouts::Layout& layout) {
  std::vector<ColumnMark> marks;
  Add(layout.items, marks);
  Add(layout.constants, marks);
  std::stable_sort(marks.begin(), marks.end(), [](const ColumnMark& a, const ColumnMark& b) {
    return a.pos != b.pos ? a.pos < b.pos : a.size > b.size;
  });
  for (std::size_t i = 0; i < marks.size(); ++i) marks[i].color = i;
  return marks;
}

std::optional<std::size_t> ColorOf(const std::vector<ColumnMark>& marks, const SlotKind& kind) {
  for (const ColumnMark& mark : marks) {
    if (std::find(mark.kinds.begin(), mark.kinds.end(), kind) != mark.kinds.end()) {
      return mark.color;
    }
  }
  return std::nullopt;
}

}  // namespace conmuta::taller
