// What differs between the places where the benchmarks run.
#pragma once

#include <string>

namespace conmuta::bench {

// The CPU time that this process has used, its calls of the system included.
double CpuSeconds();

// How long a turn must last for the step of that clock not to matter.
extern const double kTurnSeconds;

// How many times as long as the parser written by hand the translator may take.
extern const double kMostTimesByHand;

// A Unix path as programs see it here.
std::string PathHere(const std::string& unix_path);

}  // namespace conmuta::bench
