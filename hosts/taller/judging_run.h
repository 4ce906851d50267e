// One way through a capture with one layout.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "conmuta/capture_head.h"
#include "conmuta/day.h"
#include "layouts/host_line.h"
#include "layouts/layout.h"
#include "taller/capture_bytes.h"
#include "taller/line_kind.h"
#include "translate/clsTradEST.h"

namespace conmuta::taller {

class JudgingRun {
 public:
  // Bytes of a chunk: a few milliseconds' work, after which somebody may want something else.
  static constexpr std::size_t kChunk = std::size_t{1} << 17;

  JudgingRun(std::shared_ptr<const CaptureBytes> bytes, const layouts::Layout& layout,
             const Clock& clock);

  // The kinds of the next lines, up to a chunk of bytes; good until the next call. More
  // bytes than those that were taken for the last ones make it begin anew: a line that went on, or
  // a block.
  const std::vector<LineKind>& Chunk();

  // The call that only the end of the capture brings out, if there is one; known once it is done.
  std::optional<LineKind> end() const { return end_; }

  // Lines of the last chunk, some way apart, behind which nothing waits: what a fresh translator
  // makes of the lines behind them is what this one makes of them.
  static constexpr std::uint64_t kRestsApart = 256;
  const std::vector<std::uint64_t>& rests() const { return rests_; }

  // Whether all that is there was judged.
  bool IsDone() const { return is_done_; }
  std::uint64_t bytes_done() const { return offset_; }
  // Of the first line of the last chunk.
  std::uint64_t first_line() const { return first_line_; }

 private:
  void Restart();
  void Take(std::string_view line);
  void TakeEnd();

  std::shared_ptr<const CaptureBytes> bytes_;
  const Clock& system_;
  std::optional<host::DayClock> clock_;  // one for each beginning
  std::unique_ptr<clsCfgConmut> config_;
  std::unique_ptr<clsTradEST> translator_;
  layouts::HostLines lines_;
  host::CaptureHead head_;
  std::vector<char> room_;
  std::vector<LineKind> kinds_;
  std::vector<std::uint64_t> rests_;
  std::uint64_t last_rest_ = 0;
  Text text_;
  std::uint64_t offset_ = 0;
  std::uint64_t line_ = 0;
  std::uint64_t first_line_ = 1;
  std::optional<LineKind> end_;
  bool is_closed_ = false;  // more lines would not follow what was judged
  bool is_done_ = false;
};

}  // namespace conmuta::taller
