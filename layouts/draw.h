// Making masks of the places of items and constants.
#pragma once

#include <vector>

#include "layouts/layout.h"
#include "layouts/write_layout.h"

namespace conmuta::layouts {

struct Drawn {
  std::vector<Drawing> drawings;
  // What is in none of them.
  std::vector<DATO> items;
  std::vector<CTE> constants;
};

// Items and constants of a call type go into the drawing of its sample, those of all types into the
// first one that has room.
Drawn Draw(const Layout& layout, const std::vector<SampleLine>& samples);

// The type of an item that is among them.
emTipoDato TypeOf(emParamDato kind, const std::vector<DATO>& items);

}  // namespace conmuta::layouts
