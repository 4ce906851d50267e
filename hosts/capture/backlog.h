// Lines between the sources and the store: in memory, and on the disk when the store does not keep
// up.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/messages.h"
#include "capture/moment.h"
#include "capture/received.h"
#include "capture/recorder.h"
#include "capture/spill.h"

namespace conmuta::capture {

// Sources put lines in, one writer takes them out, each in a thread of its own. Numbers are given
// here: those of lines that come before the store can be asked, as soon as it was.
class Backlog {
 public:
  struct Limits {
    std::size_t memory = 8 << 20;   // bytes; above that sources wait, or lines are spilled
    std::size_t refuse = 64 << 20;  // bytes; above that lines of sources that cannot wait are lost
    std::chrono::milliseconds first_pause{250};  // after a failure of the spill; doubles
    std::chrono::milliseconds longest_pause{10000};
  };

  Backlog(std::vector<std::string> sources, OpenDatabase open_spill, Limits limits,
          Messages& messages, Now now);

  // Before the first Next, for each source: what number the store has last, and the place of the
  // source behind it. What was spilled before counts, too: gives the place to go on from. Nothing
  // when the spill cannot be had, which is told.
  std::optional<std::string> ContinueFrom(std::size_t source, std::int64_t last,
                                          const std::string& place);

  // Whether whoever can wait should.
  bool MustWait() const;

  void Put(std::size_t source, std::string bytes, Wholeness wholeness, std::string place,
           bool can_wait);
  void Count(std::size_t source, Incident incident, std::int64_t count);

  // Waits until there are lines, and then `delay` for more of them, though not for more than
  // `enough`. Gives whether there is anything to write.
  bool Wait(std::chrono::milliseconds delay, std::size_t enough);
  // Wait does not wait any more, and a spill that failed is tried again at once.
  void Hurry();

  // The next lines for the store, and what was counted meanwhile; the same until Done.
  struct Batch {
    std::vector<Arrival> lines;
    Incidents incidents;
    bool spilled = false;
    bool Empty() const { return lines.empty() && incidents.empty(); }
  };
  // Null while the spill holds some that cannot be read, which is told: none overtakes them.
  const Batch* Next(std::size_t count);
  void Done();

  // Puts all lines on the disk. False when that fails.
  bool SpillAll();
  // Whether nothing waits for the store.
  bool IsEmpty() const;
  // In memory.
  std::size_t waiting() const;
  // On the disk.
  std::int64_t spilled() const;

 private:
  // With what the writer has in hand: a place in the spill must have nothing before it that is not
  // on the disk.
  bool SpillMemory();
  // False when the spill fails, or did so a moment ago.
  template <class Work>
  bool UseSpill(Work work);
  void OpenSpill();
  void SpillFailed(const StoreError& error);
  bool HasNothing() const {
    return memory_.empty() && incidents_.empty() && batch_.Empty() && !SpillHoldsLines();
  }
  bool SpillHoldsLines() const { return spill_ ? spill_->count() > 0 : spill_held_lines_; }
  // Adds to the numbers of what is in memory, and of what will come.
  void Shift(std::size_t source, std::int64_t shift);

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> names_;
  OpenDatabase open_spill_;
  Limits limits_;
  Complaint spill_complaint_;
  Complaint lost_complaint_;
  Now now_;
  std::vector<std::int64_t> last_;
  std::deque<Arrival> memory_;
  std::size_t bytes_ = 0;
  Incidents incidents_;
  std::optional<Spill> spill_;
  std::vector<std::int64_t> taken_;  // of the spill's lines, by source
  Thoroughness spill_opening_ = Thoroughness::kChecked;
  bool spill_known_ = false;       // what is in it since before was taken into account
  bool spill_held_lines_ = false;  // when it was closed
  std::chrono::milliseconds spill_pause_;
  std::chrono::steady_clock::time_point spill_again_{};
  Batch batch_;  // with the writer
  bool hurry_ = false;
};

}  // namespace conmuta::capture
