// What may stand in front of the lines of a capture in a file.
#pragma once

#include <cstddef>
#include <string_view>

namespace conmuta::layouts {

// How many bytes of a byte order mark, which text editors write, the bytes begin with.
inline std::size_t SizeOfMark(std::string_view bytes) {
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (bytes.starts_with(mark)) return mark.size();
  }
  return 0;
}

// Whether a line that only such lines precede belongs to the head: "# clave: valor".
inline bool IsOfHead(std::string_view line) {
  return line.starts_with("# ");
}

}  // namespace conmuta::layouts
