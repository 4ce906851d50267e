#include "row.h"

#include <cmath>
#include <cstdio>

#include "require.h"

namespace conmuta::bench {

// Name, figure, unit and bound, apart by tabs; "-" for no bound.
void PrintRow(const std::string& name, double figure, const std::string& unit,
              std::optional<double> bound) {
  Require(std::isfinite(figure), "a figure is a number");
  std::printf("%s\t%.6g\t%s\t", name.c_str(), figure, unit.c_str());
  if (bound) {
    std::printf("%g\n", *bound);
  } else {
    std::puts("-");
  }
}

}  // namespace conmuta::bench
