// How long a piece of work takes.
#pragma once

#include <functional>
#include <vector>

namespace conmuta::bench {

// The nanoseconds of CPU time that one run of each work takes. They are run turn by turn, so that
// what else the machine does falls on all alike, and of each the best of several turns counts: all
// that disturbs a turn makes it longer. A work must last some ten microseconds at least.
std::vector<double> BestOfTurns(const std::vector<std::function<void()>>& works);

}  // namespace conmuta::bench
