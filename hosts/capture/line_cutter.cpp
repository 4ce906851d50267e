#include "capture/line_cutter.h"

namespace conmuta::capture {

char LineEnd(TextView separator) {
  for (std::size_t i = separator.size(); i > 0; --i) {
    const char16_t c = separator[i - 1];
    if (c != kNul && c < u' ') return static_cast<char>(c);
  }
  return '\n';
}

}  // namespace conmuta::capture
