#include "taller/selection.h"

#include <algorithm>

namespace conmuta::taller {

void Selection::SetLines(std::uint64_t lines) {
  lines_ = std::max<std::uint64_t>(lines, 1);
  if (caret_.line <= lines_) return;
  caret_.line = lines_;
  marked_.reset();
}

Caret Selection::Inside(std::int64_t line, int column) const {
  return {static_cast<std::uint64_t>(
              std::clamp<std::int64_t>(line, 1, static_cast<std::int64_t>(lines_))),
          std::clamp(column, 1, kLastColumn)};
}

void Selection::Press(Caret place) {
  before_ = Before{caret_, marked_, anchor_};
  caret_ = Inside(static_cast<std::int64_t>(place.line), place.column);
  anchor_ = caret_.column;
  marked_.reset();
}

void Selection::PullTo(int column) {
  if (!before_) return;
  caret_.column = std::clamp(column, 1, kLastColumn);
  MarkToCaret();
}

void Selection::Cancel() {
  if (!before_) return;
  caret_ = before_->caret;
  marked_ = before_->marked;
  anchor_ = before_->anchor;
  before_.reset();
}

void Selection::Move(std::int64_t lines, int columns) {
  caret_ = Inside(static_cast<std::int64_t>(caret_.line) + lines, caret_.column + columns);
  marked_.reset();
}

void Selection::Extend(int columns) {
  if (!marked_) {
    // The column that the caret stands in is the first one, so that one step marks one column.
    anchor_ = caret_.column;
    if (columns > 0) --columns;
    if (columns < 0) ++columns;
  }
  caret_.column = std::clamp(caret_.column + columns, 1, kLastColumn);
  MarkToCaret();
}

void Selection::MarkToCaret() {
  const auto [first, last] = std::minmax(anchor_, caret_.column);
  marked_ = Marked{caret_.line, first, last - first + 1};
}

}  // namespace conmuta::taller
