#include "turns.h"

#include <algorithm>

#include "place.h"

namespace conmuta::bench {
namespace {

constexpr int kRounds = 7;

double NanosecondsARun(const std::function<void()>& work) {
  const double begin = CpuSeconds();
  double spent = 0;
  int runs = 0;
  do {
    work();
    ++runs;
    spent = CpuSeconds() - begin;
  } while (spent < kTurnSeconds);
  return spent * 1e9 / runs;
}

}  // namespace

std::vector<double> BestOfTurns(const std::vector<std::function<void()>>& works) {
  std::vector<double> best;
  for (const auto& work : works) {
    work();  // warms up
    best.push_back(NanosecondsARun(work));
  }
  for (int round = 1; round < kRounds; ++round) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      best[i] = std::min(best[i], NanosecondsARun(works[i]));
    }
  }
  return best;
}

}  // namespace conmuta::bench
