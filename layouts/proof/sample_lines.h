// Lines that show what a switch prints.
#pragma once

#include <vector>

#include "layouts/proof/family.h"

namespace conmuta::layouts {

// The first line of the capture for each type of call that comes of it, in the order of the
// capture; where calls come in blocks, with the lines of its block before it. Without blanks at the
// end.
std::vector<Text> SampleLines(const Family& family);

// A ruler over that many columns: a line with the tens, and one with the units.
Text Ruler(std::size_t columns);

}  // namespace conmuta::layouts
