// The day on which lines are read: a year that they print is never before it.
#pragma once

#include <optional>
#include <string_view>

#include "platform/clock.h"

namespace conmuta::host {

// "2019-01-16"; nothing for what is no day of the calendar.
std::optional<CivilDate> ReadDay(std::string_view text);

// The system's day, until another is set.
class DayClock final : public Clock {
 public:
  explicit DayClock(const Clock& system) : system_(system) {}

  CivilDate Today() const override { return day_ ? *day_ : system_.Today(); }
  void Set(std::optional<CivilDate> day) { day_ = day; }

 private:
  const Clock& system_;
  std::optional<CivilDate> day_;
};

}  // namespace conmuta::host
