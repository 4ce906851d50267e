#include "place.h"

#include <windows.h>

#include <cstdint>

namespace conmuta::bench {
namespace {

double Seconds(const FILETIME& time) {
  const auto ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  return static_cast<double>(ticks) * 100e-9;
}

}  // namespace

// The clock goes by steps of 10 ms.
const double kTurnSeconds = 0.4;
const double kMostTimesByHand = 2.0;

// std::clock would be the time on the wall here.
double CpuSeconds() {
  FILETIME created, exited, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
  return Seconds(kernel) + Seconds(user);
}

std::string PathHere(const std::string& unix_path) {
  return "Z:" + unix_path;
}

}  // namespace conmuta::bench
