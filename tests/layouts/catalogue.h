// The catalogue of the project and what it proves, worked out once for all tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "layouts/proof/damage_report.h"
#include "layouts/proof/family.h"

namespace conmuta::layouts {

// The folders of switches/, in the same order everywhere.
std::vector<std::filesystem::path> SwitchFolders();

// All that they say; mistakes are failures of the test that asks first.
const std::vector<Family>& Catalogue();
// Null when it has mistakes.
const Family* FindFamily(const std::string& name);

// By family.
const std::vector<DamageReport>& CatalogueDamage();

}  // namespace conmuta::layouts
