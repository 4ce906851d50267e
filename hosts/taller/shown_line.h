// A line of a capture as a window shows it.
#pragma once

#include <string_view>
#include <vector>

#include "platform/text.h"

namespace conmuta::taller {

// Bytes that no column is counted for are shown between columns, so that those stay where a layout
// counts them.
struct ShownLine {
  struct Control {
    std::size_t column;  // from 1, before which it came
    char16_t symbol;     // the picture of the control character

    bool operator==(const Control&) const = default;
  };

  Text text;  // as the translator gets it: a character a column
  Text seen;  // the same with a symbol for what would not be seen, or would steer a terminal
  std::vector<Control> controls;
};

// Of the bytes of a line without its LF. The CR that ends most lines is none of the symbols: it
// tells nothing.
ShownLine Show(std::string_view bytes);

}  // namespace conmuta::taller
