#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/platform.h"
#include "support/fake_clock.h"

namespace conmuta {
namespace {

TEST(HeldClock, KeepsOneReadingUntilToldToForget) {
  test::FakeClock clock({2026, 12, 31});
  HeldClock held(clock);
  EXPECT_EQ(clock.readings, 0);
  EXPECT_EQ(held.Today().day, 31);
  clock.today = {2027, 1, 1};
  EXPECT_EQ(held.Today().day, 31);
  EXPECT_EQ(clock.readings, 1);
  held.Forget();
  EXPECT_EQ(clock.readings, 1);
  EXPECT_EQ(held.Today().day, 1);
  EXPECT_EQ(held.Today().year, 2027);
  EXPECT_EQ(clock.readings, 2);
}

TEST(SystemClock, ShowsTodayWithinATimeZone) {
  using std::chrono::days;
  using std::chrono::floor;
  using std::chrono::sys_days;
  const sys_days universal = floor<days>(std::chrono::system_clock::now());
  const CivilDate today = SystemPlatform().clock.Today();
  const sys_days local{std::chrono::year{today.year} / today.month / today.day};
  EXPECT_LE(universal - local, days{2});
  EXPECT_LE(local - universal, days{2});
}

}  // namespace
}  // namespace conmuta
