// Writing layout.toml.
#pragma once

#include <string>
#include <vector>

#include "layouts/layout.h"

namespace conmuta::layouts {

// A line that the switch prints, for a call type: "entrante", "saliente", "interna" or
// "inter_troncal".
struct SampleLine {
  TextView type;
  Text line;
};

// The layout with all places counted, under a ruler and the sample line, if there is one. Reading
// it gives the layout again, without drawings. LF at the end of each line.
std::string WriteLayout(const Layout& layout, TextView sample = {});

// The same with the places drawn in masks under the sample lines, as far as they can be drawn: what
// lies behind its line, or across something else there, and a constant that its line does not have,
// are counted. Items and constants are those of the layout, but in the order of the drawings.
std::string DrawLayout(const Layout& layout, const std::vector<SampleLine>& samples);

}  // namespace conmuta::layouts
