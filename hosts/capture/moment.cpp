#include "capture/moment.h"

#include <array>
#include <chrono>
#include <ctime>
#include <mutex>

namespace conmuta::capture {
namespace {

// The C library's answer is shared by all threads.
std::tm Local(std::int64_t time_ms) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  const auto seconds = static_cast<std::time_t>(time_ms / 1000);
  const std::tm* local = std::localtime(&seconds);
  return local != nullptr ? *local : std::tm{};
}

}  // namespace

std::int64_t SystemNow() {
  using std::chrono::system_clock;
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             system_clock::now().time_since_epoch())
      .count();
}

CivilDate LocalDate(std::int64_t time_ms) {
  const std::tm local = Local(time_ms);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string LocalTime(std::int64_t time_ms) {
  const std::tm local = Local(time_ms);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
  return text.data();
}

CivilDate ReceiptDay::Today() const {
  const std::int64_t minute = time_ms_ / 60000;
  if (minute != known_minute_) {
    known_ = LocalDate(time_ms_);
    known_minute_ = minute;
  }
  return known_;
}

}  // namespace conmuta::capture
