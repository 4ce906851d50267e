// The date that is worked out once a minute.
#include "platform/minute_clock.h"

#include <gtest/gtest.h>

#include <memory>

namespace conmuta {
namespace {

struct Machine {
  std::int64_t minute = 29'000'000;
  CivilDate today{2026, 11, 21};
  int dates_worked_out = 0;
};

class MachineTime {
 public:
  explicit MachineTime(Machine& machine) : machine_(machine) {}
  std::int64_t Minute() const { return machine_.minute; }
  CivilDate Today() const {
    ++machine_.dates_worked_out;
    return machine_.today;
  }

 private:
  Machine& machine_;
};

class MinuteClockTest : public testing::Test {
 protected:
  void ExpectDay(int day, int month = 11, int year = 2026) {
    const CivilDate date = clock_.Today();
    EXPECT_EQ(date.day, day);
    EXPECT_EQ(date.month, month);
    EXPECT_EQ(date.year, year);
  }

  Machine machine_;
  const MinuteClock<MachineTime> clock_{MachineTime(machine_)};
};

TEST_F(MinuteClockTest, WorksTheDateOutOnceAMinute) {
  for (int i = 0; i < 1000; ++i) ExpectDay(21);
  EXPECT_EQ(machine_.dates_worked_out, 1);
  ++machine_.minute;
  for (int i = 0; i < 1000; ++i) ExpectDay(21);
  EXPECT_EQ(machine_.dates_worked_out, 2);
}

TEST_F(MinuteClockTest, SeesMidnightAtOnce) {
  ExpectDay(21);
  ++machine_.minute;
  machine_.today = {2026, 11, 22};
  ExpectDay(22);
}

TEST_F(MinuteClockTest, SeesAClockThatWasSetForwardOrBack) {
  ExpectDay(21);
  machine_.minute += 1'000'000;
  machine_.today = {2028, 10, 15};
  ExpectDay(15, 10, 2028);
  machine_.minute -= 2'000'000;
  machine_.today = {2024, 12, 31};
  ExpectDay(31, 12, 2024);
}

// Where the zone is, is asked no more often than the date.
TEST_F(MinuteClockTest, SeesAChangeOfZoneWithTheNextMinute) {
  ExpectDay(21);
  machine_.today = {2026, 11, 20};
  ExpectDay(21);
  ++machine_.minute;
  ExpectDay(20);
}

TEST_F(MinuteClockTest, TakesTheFirstMinuteOfAllForOne) {
  machine_.minute = 0;
  machine_.today = {1970, 1, 1};
  ExpectDay(1, 1, 1970);
  ExpectDay(1, 1, 1970);
  EXPECT_EQ(machine_.dates_worked_out, 1);
}

TEST_F(MinuteClockTest, HoldsEveryYearOfARecord) {
  machine_.today = {32767, 12, 31};
  ExpectDay(31, 12, 32767);
}

}  // namespace
}  // namespace conmuta
