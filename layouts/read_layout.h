// Reading layout.toml.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "layouts/layout.h"
#include "layouts/mistake.h"
#include "layouts/toml_tree.h"

namespace conmuta::layouts {

struct LayoutReading {
  std::optional<Layout> layout;   // when there is no mistake
  std::vector<Mistake> mistakes;  // by place
};

// Takes any bytes. `file` is what mistakes call the text.
LayoutReading ReadLayout(std::string_view toml, TextView file = u"layout.toml");
LayoutReading ReadLayout(const ParsedToml& parsed, TextView file);

}  // namespace conmuta::layouts
