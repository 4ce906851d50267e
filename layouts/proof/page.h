// The page that a switch is chosen by.
#pragma once

#include <string>
#include <vector>

#include "layouts/proof/damage_report.h"
#include "layouts/proof/family.h"

namespace conmuta::layouts {

// Markdown, Spanish: a table of all families, then a section each. UTF-8.
std::string CataloguePage(const std::vector<Family>& families,
                          const std::vector<DamageReport>& reports);

}  // namespace conmuta::layouts
