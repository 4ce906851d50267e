// Long random sequences of writes, compared with a plain telling of the rules.
#include <gtest/gtest.h>

#include "support/config_writes.h"

namespace conmuta {
namespace {

class RandomWrites : public testing::TestWithParam<unsigned> {};

TEST_P(RandomWrites, BehaveAsTheRulesSay) {
  test::ConfigWrites writes{test::Random(GetParam())};
  for (int step = 0; step < 10000 && !HasFailure(); ++step) {
    SCOPED_TRACE(testing::Message() << "step " << step);
    writes.Step();
  }
  EXPECT_GT(writes.saved(), 10);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWrites, testing::Values(1u, 2u, 3u, 4u, 5u, 6u));

}  // namespace
}  // namespace conmuta
