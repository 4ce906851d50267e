// What a benchmark rests on.
#pragma once

namespace conmuta::bench {

// Ends the program when it does not hold, and says what; a figure would be worth nothing.
void Require(bool holds, const char* what);

}  // namespace conmuta::bench
