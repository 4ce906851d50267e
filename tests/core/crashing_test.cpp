// A test program that dies must say in which test: a log without a name costs somebody an hour.
#include <gtest/gtest.h>

#include <cstdlib>

namespace conmuta::test {
namespace {

void ReadNowhere() {
  static volatile int* const nowhere = nullptr;
  std::exit(*nowhere);
}

TEST(CrashingDeathTest, IsNamedByTheProgramThatDies) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(ReadNowhere(), "CRASHED.*CrashingDeathTest.IsNamedByTheProgramThatDies");
}

TEST(CrashingDeathTest, IsNamedWhenTheProgramAborts) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(std::abort(), "CRASHED.*CrashingDeathTest.IsNamedWhenTheProgramAborts");
}

}  // namespace
}  // namespace conmuta::test
