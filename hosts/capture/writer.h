// Carries lines from the backlog to the store, in a thread of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <thread>

#include "capture/backlog.h"
#include "capture/messages.h"
#include "capture/recorder.h"

namespace conmuta::capture {

class Writer {
 public:
  struct Limits {
    std::size_t lines = 2000;                    // in one transaction
    std::chrono::milliseconds delay{250};        // that a line waits for others
    std::chrono::milliseconds first_pause{250};  // after a failure; doubles
    std::chrono::milliseconds longest_pause{5000};
    std::chrono::milliseconds spill_after{3000};  // of failures all that waits goes to the disk
  };

  Writer(Backlog& backlog, Recorder& recorder, Limits limits, Messages& messages);
  ~Writer() { Stop(); }

  void Start();
  // Writes what waits; where the store does not take it, into the spill. Gives whether all is on
  // the disk.
  bool Stop();

 private:
  void Work();
  bool WriteNext();
  void Pause(std::chrono::milliseconds time) const;

  Backlog& backlog_;
  Recorder& recorder_;
  Limits limits_;
  Messages& messages_;
  Complaint complaint_;
  Thoroughness next_opening_ = Thoroughness::kQuick;
  std::atomic<bool> stopping_ = false;
  bool all_kept_ = true;
  std::thread thread_;
};

}  // namespace conmuta::capture
