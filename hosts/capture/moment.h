// Moments as the capture keeps them: milliseconds since 1970, UTC.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/clock.h"

namespace conmuta::capture {

// The clock, handed in so that tests can lie.
using Now = std::function<std::int64_t()>;
std::int64_t SystemNow();

// The local date at a moment.
CivilDate LocalDate(std::int64_t time_ms);
// "2026-11-21 22:04:05", local time.
std::string LocalTime(std::int64_t time_ms);

// The day on which a line was received, however long ago that is.
class ReceiptDay final : public Clock {
 public:
  void Set(std::int64_t time_ms) { time_ms_ = time_ms; }
  CivilDate Today() const override;

 private:
  std::int64_t time_ms_ = 0;
  // The date holds for a minute.
  mutable std::int64_t known_minute_ = -1;
  mutable CivilDate known_{};
};

}  // namespace conmuta::capture
