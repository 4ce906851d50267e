// A pair of connectors by its number, also one that there is not.
#pragma once

#include "config/enums.h"

namespace conmuta::test {

inline emPuertoSerial Pair(int code) {
  return static_cast<emPuertoSerial>(code);
}

}  // namespace conmuta::test
