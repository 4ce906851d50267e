#include "conmuta/progress.h"

#include <string>

namespace conmuta::host {
namespace {

constexpr std::size_t kWidth = 40;  // of what is shown, at most

}  // namespace

void Progress::Advance(std::uint64_t bytes, std::uint64_t lines) {
  bytes_ += bytes;
  lines_ += lines;
  if (!is_terminal_) return;
  const std::lock_guard lock(mutex_);
  if (Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::milliseconds(250);
  Show();
}

void Progress::Show() {
  err_ << '\r' << lines_ << " líneas";
  if (total_ != 0) err_ << ", " << bytes_ * 100 / total_ << " %";
  err_ << "   " << std::flush;
  shown_ = true;
}

void Progress::Clear() {
  const std::lock_guard lock(mutex_);
  if (shown_) err_ << '\r' << std::string(kWidth, ' ') << '\r' << std::flush;
  shown_ = false;
}

}  // namespace conmuta::host
