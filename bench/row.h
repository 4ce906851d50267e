// One row of the table: all that a benchmark has to say. scripts/bench collects and judges them.
#pragma once

#include <optional>
#include <string>

namespace conmuta::bench {

// A figure above its bound is a failure.
void PrintRow(const std::string& name, double figure, const std::string& unit,
              std::optional<double> bound = std::nullopt);

}  // namespace conmuta::bench
