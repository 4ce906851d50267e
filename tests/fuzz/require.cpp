#include <cstdio>
#include <cstdlib>

#include "fuzz/targets.h"

namespace conmuta::fuzz {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace conmuta::fuzz
