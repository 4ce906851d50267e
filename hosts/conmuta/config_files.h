// Configuration files, made of layouts.
#pragma once

#include <filesystem>
#include <vector>

#include "conmuta/files.h"
#include "layouts/layout.h"

namespace conmuta::host {

struct ConfigFile {
  std::filesystem::path path;
  layouts::Layout layout;
};

// All of them or, when one may not be written, none. UserError with the first that fails.
void WriteConfigs(const std::vector<ConfigFile>& files, Existing existing);

}  // namespace conmuta::host
