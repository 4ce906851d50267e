// What a host does with the bytes of a switch before the component sees them.
#pragma once

#include <string>
#include <string_view>

namespace conmuta::layouts {

// Whether a byte has a column of its own.
constexpr bool IsPrinted(char c) {
  return static_cast<unsigned char>(c) >= ' ' && c != '\x7F';
}

// Cuts what a switch sends into lines, in whatever pieces it comes. A line ends with LF. The CR
// before it, and with it all other bytes below 32 (NUL, XON, XOFF, DLE, form feed...) and DEL, are
// dropped: they stand between and within the columns of a line without being printed. What a line
// has beyond kMost bytes is dropped, too: no layout reads so far, and a line that never ends must
// not fill the memory.
class HostLines {
 public:
  static constexpr std::size_t kMost = 65536;

  // Takes the next bytes, and hands each line that ends in them to `line`, as a std::string_view
  // that lives until it returns.
  template <class Line>
  void Take(std::string_view bytes, Line line) {
    for (std::size_t end = 0; (end = bytes.find('\n')) != std::string_view::npos;) {
      std::string_view whole = bytes.substr(0, end);
      bytes.remove_prefix(end + 1);
      if (whole.ends_with('\r')) whole.remove_suffix(1);
      if (present_.empty() && whole.size() <= kMost && IsPrinted(whole)) {
        line(whole);
      } else {
        Keep(whole);
        line(std::string_view(present_));
        present_.clear();
      }
    }
    Keep(bytes);
  }

  // What has come since the last line end.
  std::string_view rest() const { return present_; }

 private:
  // Of most lines nothing is to be dropped, and no copy is needed. Without a way out in the middle
  // the processor looks at many bytes at once.
  static bool IsPrinted(std::string_view bytes) {
    unsigned char dropped = 0;
    for (const char c : bytes) dropped |= static_cast<unsigned char>(layouts::IsPrinted(c) ? 0 : 1);
    return dropped == 0;
  }

  void Keep(std::string_view bytes) {
    for (const char c : bytes) {
      if (layouts::IsPrinted(c) && present_.size() < kMost) present_ += c;
    }
  }

  std::string present_;
};

}  // namespace conmuta::layouts
