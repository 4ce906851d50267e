// Expecting a configuration operation to fail the way that hosts tell apart.
#pragma once

#include <gtest/gtest.h>

#include "platform/errors.h"
#include "support/config_snapshot.h"

namespace conmuta::test {

template <class Operation>
void ExpectConfigError(Operation&& operation, std::uint32_t number, TextView source,
                       TextView description) {
  try {
    operation();
  } catch (const ConfigError& error) {
    EXPECT_EQ(error.number(), number) << std::hex << error.number();
    EXPECT_EQ(Shown(error.source()), Shown(source));
    EXPECT_EQ(Shown(error.description()), Shown(description));
    return;
  }
  FAIL() << "no error, expected " << std::hex << number;
}

}  // namespace conmuta::test
