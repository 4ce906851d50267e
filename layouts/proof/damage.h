// What happens to lines on their way: each form of a damaged line.
#pragma once

#include <cstdint>
#include <vector>

#include "layouts/capture.h"

namespace conmuta::layouts {

enum class Damage : std::uint8_t {
  kCut,       // its end is missing, from each column on
  kHeadLost,  // its first character is missing
  kControl,   // control bytes stand in front, which the host did not drop
  kGlued,     // the next line goes on behind it, with or without the blanks between
  kBlanks,    // the blanks at its end are missing: no damage to a person
};
inline constexpr std::size_t kDamages = 5;

struct DamagedLine {
  Damage damage;
  Text text;
  bool has_next = false;  // the next line is part of it
};

// All that can happen to the line of that index; nothing twice, and no line stays as it was.
std::vector<DamagedLine> DamagedForms(const std::vector<CaptureLine>& lines, std::size_t index);

}  // namespace conmuta::layouts
