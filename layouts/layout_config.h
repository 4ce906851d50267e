// Layouts and configurations, each made of the other.
#pragma once

#include "config/clsCfgConmut.h"
#include "layouts/layout.h"

namespace conmuta::layouts {

// Makes a configuration what the layout says, in place of all that it held but its IDCfg and
// PuertoActivo. Its events tell. In one that never had slots they stand in the order of the layout;
// one that had some puts the new ones where those were.
void Apply(const Layout& layout, clsCfgConmut& config);

// What a file of the configuration would hold: characters that it cannot keep are "?" already.
// There is no sheet, and nothing is drawn.
Layout LayoutOf(const clsCfgConmut& config);

}  // namespace conmuta::layouts
