// What a host does with the bytes of a switch before the component sees them.
#pragma once

#include <string>
#include <string_view>

namespace conmuta::layouts {

// Cuts what a switch sends into lines, in whatever pieces it comes. A line ends with LF. The CR
// before it, and with it all other bytes below 32 (NUL, XON, XOFF, DLE, form feed...), are dropped:
// they stand between and within the columns of a line without being printed.
class HostLines {
 public:
  // Takes the next bytes, and hands each line that ends in them to `line`, as a std::string_view
  // that lives until it returns.
  template <class Line>
  void Take(std::string_view bytes, Line line) {
    for (const char c : bytes) {
      if (c == '\n') {
        line(std::string_view(present_));
        present_.clear();
      } else if (static_cast<unsigned char>(c) >= ' ') {
        present_ += c;
      }
    }
  }

  // What has come since the last line end.
  std::string_view rest() const { return present_; }

 private:
  std::string present_;
};

}  // namespace conmuta::layouts
