// How the program ends. Scripts rely on the numbers.
#pragma once

namespace conmuta::host {

inline constexpr int kDone = 0;
inline constexpr int kLinesWithErrors = 1;
inline constexpr int kUsage = 2;  // wrong arguments, and files that cannot be read or written

}  // namespace conmuta::host
