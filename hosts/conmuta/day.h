// The day on which lines are read: a year that they print is never before it.
#pragma once

#include <optional>
#include <string_view>

#include "platform/clock.h"

namespace conmuta::host {

// "2019-01-16"; nothing for what is no day of the calendar.
std::optional<CivilDate> ReadDay(std::string_view text);

// The system's day as it was when it was last looked at, unless another is set. Lines come by the
// million, and asking the system for each costs.
class DayClock final : public Clock {
 public:
  explicit DayClock(const Clock& system) : system_(system) {}

  CivilDate Today() const override { return day_; }

  void Set(CivilDate day) {
    day_ = day;
    is_set_ = true;
  }
  void LookAgain() {
    if (!is_set_) day_ = system_.Today();
  }

 private:
  const Clock& system_;
  CivilDate day_ = system_.Today();
  bool is_set_ = false;
};

}  // namespace conmuta::host
