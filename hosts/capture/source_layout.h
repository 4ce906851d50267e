// What the lines of a source are translated with.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "config/clsCfgConmut.h"
#include "layouts/layout.h"

namespace conmuta::capture {

struct LoadedLayout {
  std::string name;
  std::shared_ptr<clsCfgConmut> config;
  layouts::Sheet::TimeOf time_of = layouts::Sheet::TimeOf::kUnknown;
};

// Loads by what a person wrote, one layout or several; throws std::runtime_error with a sentence.
using LoadLayouts = std::function<std::vector<LoadedLayout>(const std::string& name)>;

struct SourceLayout {
  std::string name;                   // of the source
  std::string layout;                 // as the person wrote it
  std::vector<LoadedLayout> layouts;  // a line is the first one's that makes a call of it
};

}  // namespace conmuta::capture
