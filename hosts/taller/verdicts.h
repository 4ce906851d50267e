// What becomes of every line of a capture, found out in the background.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "layouts/layout.h"
#include "platform/clock.h"
#include "taller/capture_bytes.h"
#include "taller/line_counts.h"

namespace conmuta::taller {

class JudgingRun;

// No call waits for a translation, but Wait. What is known of a line stays until it is known
// better, so that a change does not make all figures start from nothing.
class Verdicts {
 public:
  // `told` is called by the thread that judges whenever there is something new; it must not ask for
  // anything here. The clock must live as long.
  Verdicts(const Clock& clock, std::function<void()> told);
  ~Verdicts();
  Verdicts(const Verdicts&) = delete;
  Verdicts& operator=(const Verdicts&) = delete;

  // Judges all lines anew, and gives up what is being done.
  void Judge(std::shared_ptr<const CaptureBytes> bytes, const layouts::Layout& layout);
  // Bytes were appended to the capture.
  void More();
  // Gives up what is being done. What is known stays.
  void Stop();

  // Whether nothing is being done after so much time.
  bool Wait(std::chrono::milliseconds most);

  struct Progress {
    std::uint64_t bytes_done = 0;
    std::uint64_t bytes = 0;
    bool is_done = true;
  };
  Progress progress() const;

  LineKind Of(std::uint64_t line) const;  // from 1
  LineCounts counts() const;
  // The last line known before this one behind which nothing waits; 0 for the beginning. Explainer
  // begins there.
  std::uint64_t RestBefore(std::uint64_t line) const;

  // The lines of a counter in their order; those behind a line only. A call that only the end of
  // the capture brings out is found at the last line of its block.
  std::vector<std::uint64_t> LinesOf(Counter counter, std::uint64_t behind = 0) const;
  // The nearest one behind or before a line that is not counted itself.
  std::optional<std::uint64_t> Next(Counter counter, std::uint64_t line) const;
  std::optional<std::uint64_t> Previous(Counter counter, std::uint64_t line) const;

 private:
  void Work();
  void Publish(const JudgingRun& run, const std::vector<LineKind>& kinds);
  bool Counts(Counter counter, std::size_t at) const {
    return counter.Counts(kinds_[at]) || (at + 1 == end_line_ && counter.Counts(*end_));
  }

  const Clock& clock_;
  const std::function<void()> told_;

  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::condition_variable done_;
  std::shared_ptr<const CaptureBytes> bytes_;
  std::shared_ptr<JudgingRun> run_;  // the one that counts; used by the thread that judges only
  bool goes_on_ = false;             // whether it has something to do
  bool works_ = false;               // in a chunk of it
  bool ends_ = false;
  std::uint64_t bytes_done_ = 0;
  std::vector<LineKind> kinds_;
  std::vector<std::uint64_t> rests_;
  LineCounts counts_;
  std::optional<LineKind> end_;  // the call that only the end brings out
  std::uint64_t end_line_ = 0;   // where it is found; 0 for nowhere

  std::thread thread_;  // last: it uses all of the above
};

}  // namespace conmuta::taller
