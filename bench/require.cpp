#include "require.h"

#include <cstdio>
#include <cstdlib>

namespace conmuta::bench {

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::exit(1);
}

}  // namespace conmuta::bench
