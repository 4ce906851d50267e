// How bad it is what became of calls.
#pragma once

#include <cstdint>
#include <vector>

#include "layouts/expected_calls.h"

namespace conmuta::layouts {

// From bad to worse.
enum class Harm : std::uint8_t {
  kNone,      // the same calls, or fewer
  kDetail,    // ring, account or mark of transfer
  kDuration,  // duration
  kWrong,     // type, a party, the number, date or time: somebody else's call
};

// The worst that became of any of the calls that were found, which are those of a damaged line and
// of all that depends on it; `whole` are those of the lines as they were.
Harm Compare(std::vector<ExpectedCall> whole, const std::vector<ExpectedCall>& found);

}  // namespace conmuta::layouts
