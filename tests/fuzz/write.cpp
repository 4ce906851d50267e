#include "fuzz/targets.h"
#include "support/config_writes.h"

namespace conmuta::fuzz {

void Write(std::string_view bytes) {
  test::ConfigWrites writes{test::Random(bytes)};
  while (!writes.random().Spent()) {
    writes.Step();
    Require(!testing::Test::HasFailure(), "a configuration does what the rules say");
  }
}

}  // namespace conmuta::fuzz
