// A clock that shows the date a test sets and counts how often it is read.
#pragma once

#include "platform/clock.h"

namespace conmuta::test {

class FakeClock final : public Clock {
 public:
  explicit FakeClock(CivilDate today = {2026, 11, 21}) : today(today) {}

  CivilDate Today() const override {
    ++readings;
    return today;
  }

  CivilDate today;
  mutable int readings = 0;
};

}  // namespace conmuta::test
