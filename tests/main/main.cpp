#include <gtest/gtest.h>

#include "main/crash_names_test.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  conmuta::test::CrashesNameTheirTest();
  return RUN_ALL_TESTS();
}
