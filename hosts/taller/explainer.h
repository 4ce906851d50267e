// Finds out what the component makes of one line of a capture.
#pragma once

#include "platform/clock.h"
#include "taller/capture_text.h"
#include "taller/result.h"

namespace conmuta::taller {

// Translates the lines before it as well, on which its own may depend, and the rest of its block.
class Explainer {
 public:
  // Of the lines before and behind, so many at most: a few milliseconds' work.
  static constexpr std::uint64_t kMostBefore = 4096;
  static constexpr std::uint64_t kMostBehind = 512;
  static constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 20;  // where lines do not end

  // The clock must live as long.
  explicit Explainer(const Clock& clock) : clock_(clock) {}

  // `rest` is a line before it behind which nothing waits, as Verdicts knows it.
  Result Explain(const CaptureText& text, const layouts::Layout& layout, std::uint64_t line,
                 std::uint64_t rest = 0) const;

 private:
  const Clock& clock_;
};

}  // namespace conmuta::taller
