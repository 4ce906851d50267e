// A switch of the catalogue: what its folder says, read once.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "layouts/expected_calls.h"
#include "layouts/layout.h"
#include "layouts/mistake.h"

namespace conmuta::layouts {

struct Family {
  std::string name;  // of the folder
  Layout layout;
  Capture capture;
  // What must come out of each line of the capture, on kPresent (player.h).
  std::vector<Outcome> expected;
};

struct Families {
  std::vector<Family> families;   // in the order of the folders, without those that have mistakes
  std::vector<Mistake> mistakes;  // their files bear the folders' paths
};

Families ReadFamilies(const std::vector<std::filesystem::path>& folders);

}  // namespace conmuta::layouts
