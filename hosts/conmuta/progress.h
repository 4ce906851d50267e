// How far a long work has come, told on a terminal.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <ostream>

namespace conmuta::host {

// Silent at first, and where there is no terminal. May be told from any thread.
class Progress {
 public:
  // `total`: bytes altogether, 0 when that is not known.
  Progress(std::ostream& err, bool is_terminal, std::uint64_t total,
           std::chrono::milliseconds silence = std::chrono::seconds(1))
      : err_(err), is_terminal_(is_terminal), total_(total), next_(Clock::now() + silence) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Advance(std::uint64_t bytes, std::uint64_t lines);
  // Takes it off the screen.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;

  void Show();

  std::ostream& err_;
  const bool is_terminal_;
  const std::uint64_t total_;
  std::atomic<std::uint64_t> bytes_ = 0;
  std::atomic<std::uint64_t> lines_ = 0;
  std::mutex mutex_;
  Clock::time_point next_;
  bool shown_ = false;
};

}  // namespace conmuta::host
