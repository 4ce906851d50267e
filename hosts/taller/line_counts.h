// How many lines there are of each kind.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "taller/line_kind.h"

namespace conmuta::taller {

class LineCounts {
 public:
  void Add(LineKind kind) { ++counts_[kind.code()]; }
  void Remove(LineKind kind) { --counts_[kind.code()]; }

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

  bool operator==(const LineCounts&) const = default;

 private:
  std::array<std::uint64_t, 256> counts_{};
};

}  // namespace conmuta::taller
