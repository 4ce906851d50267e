// Base of the tests that make objects: each must leave none behind.
#pragma once

#include "dll.h"
#include "host.h"

namespace conmuta::test {

class HostTest : public ::testing::Test {
 protected:
  void TearDown() override {
    const LoadedDll dll;
    ASSERT_TRUE(dll);
    EXPECT_EQ(dll.CanUnloadNow(), S_OK) << "an object is still alive";
    SetErrorInfo(0, nullptr);
  }
};

}  // namespace conmuta::test
