// The plain-text summary of a configuration.
#pragma once

#include "config/clsCfgConmut.h"

namespace conmuta {

// Identity, then every data item and every constant that is defined. Addresses each kind in turn:
// DATOActivo and CTEActivo are left at the last.
Text ConfigurationReport(clsCfgConmut& config);

}  // namespace conmuta
