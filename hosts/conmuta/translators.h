// The translators of a source, with the configurations of its layouts.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "conmuta/layout_choice.h"
#include "translation/translators.h"

namespace conmuta::host {

using translation::Outcome;

class LayoutTranslators {
 public:
  // UserError for a layout that no line can be translated with. The clock must live as long.
  LayoutTranslators(std::span<const NamedLayout> layouts, const Clock& clock)
      : configs_(MakeUsefulConfigs(layouts)), translators_(Views(), clock) {}

  translation::Translators* operator->() { return &translators_; }

 private:
  std::vector<clsCfgConmut*> Views() const {
    std::vector<clsCfgConmut*> views;
    for (const auto& config : configs_) views.push_back(config.get());
    return views;
  }

  std::vector<std::unique_ptr<clsCfgConmut>> configs_;
  translation::Translators translators_;
};

}  // namespace conmuta::host
