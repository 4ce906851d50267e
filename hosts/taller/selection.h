// Where the person is in the lines of a capture, and which columns are marked.
#pragma once

#include <cstdint>
#include <optional>

namespace conmuta::taller {

// Columns of one line.
struct Marked {
  std::uint64_t line = 1;
  int pos = 1;
  int size = 1;

  bool operator==(const Marked&) const = default;
};

struct Caret {
  std::uint64_t line = 1;
  int column = 1;

  bool operator==(const Caret&) const = default;
};

// Places are characters of lines, never points of a screen. What lies outside is brought inside:
// columns end where no item reaches.
class Selection {
 public:
  static constexpr int kLastColumn = 254;

  // How many lines there are, which may grow; at least one.
  void SetLines(std::uint64_t lines);

  const Caret& caret() const { return caret_; }
  const std::optional<Marked>& marked() const { return marked_; }

  // The mouse. A press that is not pulled puts the caret and marks nothing.
  void Press(Caret place);
  void PullTo(int column);
  void Release() { before_.reset(); }
  // While the button is down: all as it was before the press.
  void Cancel();

  // The keyboard: the arrows move the caret, with Shift they mark from where it was.
  void Move(std::int64_t lines, int columns);
  void Extend(int columns);
  void Unmark() { marked_.reset(); }

 private:
  struct Before {
    Caret caret;
    std::optional<Marked> marked;
    int anchor;
  };

  Caret Inside(std::int64_t line, int column) const;
  void MarkToCaret();

  std::uint64_t lines_ = 1;
  Caret caret_;
  int anchor_ = 1;  // the column that a mark began with
  std::optional<Marked> marked_;
  std::optional<Before> before_;  // while the button is down
};

}  // namespace conmuta::taller
