// The system clock as the core sees it: today's date, local time.
#pragma once

#include <optional>

#include "platform/calendar.h"

namespace conmuta {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual CivilDate Today() const = 0;
};

// Reads another clock on first use and keeps that answer until Forget: all items of one line are
// dated alike, for the price of one reading.
class HeldClock final : public Clock {
 public:
  explicit HeldClock(const Clock& clock) : clock_(clock) {}

  CivilDate Today() const override {
    if (!today_) today_ = clock_.Today();
    return *today_;
  }
  void Forget() { today_.reset(); }

 private:
  const Clock& clock_;
  mutable std::optional<CivilDate> today_;
};

}  // namespace conmuta
