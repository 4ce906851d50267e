// What a person names as LAYOUT.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/clsCfgConmut.h"
#include "layouts/layout.h"

namespace conmuta::host {

struct NamedLayout {
  std::string name;  // of the catalogue, of its folder, or of its file without the extension
  layouts::Layout layout;
};

// A configuration file or an exchange file, a layout file, a folder with one, or a name of the
// catalogue; in this order. All raise UserError, with every mistake of a layout in a line of its
// own.
NamedLayout FindLayout(std::string_view argument);

enum class Companions { kCome, kStayAway };

// Several joined by "+"; a line is the first one's that makes a call of it. Behind them, unless
// they stay away, the alternatives that they name themselves. None twice.
std::vector<NamedLayout> FindLayouts(std::string_view argument, Companions companions);

// A configuration as it is in its file.
std::unique_ptr<clsCfgConmut> OpenConfig(std::string_view argument);

std::unique_ptr<clsCfgConmut> MakeConfig(const layouts::Layout& layout);
// UserError for a layout that no line can be translated with.
std::vector<std::unique_ptr<clsCfgConmut>> MakeUsefulConfigs(std::span<const NamedLayout> layouts);

// The catalogue that the program carries with it; its layouts have no mistakes.
const std::vector<NamedLayout>& Catalogue();

}  // namespace conmuta::host
