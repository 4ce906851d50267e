#include "place.h"

#include <ctime>

namespace conmuta::bench {

const double kTurnSeconds = 0.1;
const double kMostTimesByHand = 1.25;

double CpuSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

std::string PathHere(const std::string& unix_path) {
  return unix_path;
}

}  // namespace conmuta::bench
