// Paints the lines of a capture.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "taller/column_marks.h"
#include "taller/line_kind.h"
#include "taller/selection.h"
#include "taller/shown_line.h"

namespace conmuta::taller {

// Pixels of the grid that characters stand in: a ruler above, line numbers and marks to the left.
struct LinesGrid {
  int cell = 8;    // a character's width
  int row = 16;    // a line's height
  int ruler = 32;  // two rows
  int gutter = 64;
};

// What is to be seen of them.
struct LinesPicture {
  struct Row {
    std::uint64_t number;
    ShownLine line;
    LineKind kind;
  };
  LinesGrid grid;
  std::vector<Row> rows;     // from the top
  int first_column = 1;      // at the left
  std::optional<int> ruled;  // the column that the ruler tells of
  Text ruled_names;          // what it is
  Caret caret;
  std::optional<Marked> marked;
  std::vector<ColumnMark> used;
  Text hint;  // in place of lines, when there are none
};

void PaintLines(HDC dc, SIZE room, HFONT fixed, HFONT message, const LinesPicture& picture);

}  // namespace conmuta::taller
