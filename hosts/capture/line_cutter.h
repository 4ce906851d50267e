// Bytes of a line at work, cut into lines.
#pragma once

#include <string>
#include <string_view>

#include "capture/received.h"
#include "platform/text.h"

namespace conmuta::capture {

// The byte that ends a line, by a configuration's separator: its last control character. One that
// has none, the dashes of a block for instance, is itself printed text, and lines end with LF.
char LineEnd(TextView separator);

class LineCutter {
 public:
  static constexpr std::size_t kUsualLimit = 64 * 1024;

  // Lines longer than the limit are handed out in pieces of that size.
  explicit LineCutter(char line_end, std::size_t limit = kUsualLimit)
      : line_end_(line_end), limit_(limit) {}

  // Takes the next bytes, in whatever pieces they come. Calls `line(std::string bytes, Wholeness,
  // std::size_t used)` for each line that ends in them; `used` bytes of these had been taken then.
  template <class Line>
  void Take(std::string_view bytes, Line line) {
    std::size_t begin = 0;
    while (begin < bytes.size()) {
      std::size_t end = bytes.find(line_end_, begin);
      const bool ends = end != std::string_view::npos;
      if (!ends) end = bytes.size();
      const std::size_t room = limit_ - present_.size();
      if (end - begin > room) {
        present_.append(bytes, begin, room);
        begin += room;
        in_pieces_ = true;
        line(Present(), Wholeness::kCut, begin);
        continue;
      }
      present_.append(bytes, begin, end - begin);
      begin = end + std::size_t{ends};
      if (!ends) continue;
      const Wholeness wholeness = in_pieces_ ? Wholeness::kCut : Wholeness::kWhole;
      in_pieces_ = false;
      line(Present(), wholeness, begin);
    }
  }

  // What has come since the last line end, which will not come any more; empty when there is
  // nothing.
  std::string TakeRest() {
    in_pieces_ = false;
    return Present();
  }

 private:
  std::string Present() {
    std::string line;
    line.swap(present_);
    return line;
  }

  char line_end_;
  std::size_t limit_;
  std::string present_;
  bool in_pieces_ = false;
};

}  // namespace conmuta::capture
