// Carries lines from the backlog to the store, in a thread of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

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
    std::chrono::milliseconds end{4000};          // in which what waits at the end is written
    std::chrono::milliseconds patience{3000};     // beyond that, with a store that is silent
  };
  // Called in the writer's thread.
  struct Events {
    // The store can be had: once, with the places from which the sources go on.
    std::function<void(const std::vector<std::string>& places)> reached;
    // It is one that must not be touched.
    std::function<void()> refused;
  };

  Writer(Backlog& backlog, Recorder& recorder, Limits limits, Messages& messages, Events events);
  // Waits for the store, however long it is silent.
  ~Writer();

  void Start();
  // Whoever hears the sources asks for it now and then: what waits behind a store that is silent
  // goes to the disk.
  void Watch();
  // Writes what waits; where the store does not take it in time, into the spill. Gives whether all
  // is on the disk.
  bool Stop();
  // The store failed the last time, or has been silent for long.
  bool IsHeldUp();
  // The store was silent at the end, too: the thread still waits for it.
  bool is_stuck() const { return is_stuck_; }

 private:
  using Clock = std::chrono::steady_clock;

  void Work();
  void Write();
  bool WriteNext();
  void SetBusy(bool busy);
  std::optional<Clock::duration> SilentFor();
  bool Reach();
  bool KeepRest();
  void Pause(std::chrono::milliseconds time) const;

  Backlog& backlog_;
  Recorder& recorder_;
  Limits limits_;
  Messages& messages_;
  Events events_;
  Complaint complaint_;
  Complaint silence_;  // of the thread that watches
  Thoroughness next_opening_ = Thoroughness::kChecked;
  bool reached_ = false;
  std::atomic<bool> stopping_ = false;
  std::atomic<bool> failed_ = false;
  Clock::time_point end_{};  // once it is stopping
  std::mutex mutex_;         // of those that follow
  std::condition_variable changed_;
  bool is_over_ = false;
  std::optional<Clock::time_point> busy_since_;  // while the store is asked for something
  std::atomic<bool> is_stuck_ = false;
  std::atomic<bool> all_kept_ = true;
  std::thread thread_;
};

}  // namespace conmuta::capture
