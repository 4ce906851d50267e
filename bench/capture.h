// The example switches, as the benchmarks use them.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace conmuta::bench {

std::string ConfigPath(const std::string& example);
std::vector<Text> CaptureLines(const std::string& example);
Text ToText16(const std::string& ascii);

}  // namespace conmuta::bench
