// How many lines there are of each kind.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "taller/line_kind.h"

namespace conmuta::taller {

class LineCounts {
 public:
  void Add(LineKind kind) { ++counts_[kind.code()]; }
  void Remove(LineKind kind) { --counts_[kind.code()]; }

  // The call that no line of its own brought, which counts among the calls and not as a line.
  void SetEnd(std::optional<LineKind> end) { end_ = end; }

  std::uint64_t Of(Counter counter) const;

  // The kinds that a counter unfolds into, most frequent first.
  struct Part {
    LineKind kind;
    std::uint64_t lines;
    TextView sentence;  // what it is, in Spanish

    bool operator==(const Part&) const = default;
  };
  std::vector<Part> PartsOf(Counter counter) const;

  // "53 líneas: 29 llamadas (15 salientes…), 24 sin llamada, 0 errores". The head is none of them.
  std::string Sentence() const;

  // The same with its figures, each of which leads to its lines.
  struct Figure {
    std::size_t begin;  // characters of the sentence, with the word behind the number
    std::size_t end;
    Counter counter;

    bool operator==(const Figure&) const = default;
  };
  struct Line {
    Text sentence;
    std::vector<Figure> figures;
  };
  Line WithFigures() const;

  bool operator==(const LineCounts&) const = default;

 private:
  std::uint64_t Of(LineKind kind) const { return counts_[kind.code()] + (end_ == kind ? 1 : 0); }

  std::array<std::uint64_t, 256> counts_{};  // of lines
  std::optional<LineKind> end_;
};

}  // namespace conmuta::taller
