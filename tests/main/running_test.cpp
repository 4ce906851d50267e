#include "main/running_test.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace conmuta::test {

void PrintRunningTest(const char* reason) {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::fprintf(stderr, "\n[  CRASHED ] %s in %s.%s\n", reason,
               test != nullptr ? test->test_suite_name() : "no suite",
               test != nullptr ? test->name() : "no test");
  std::fflush(stderr);
}

}  // namespace conmuta::test
