// How long the dotted keys of a TOML text are.
#pragma once

#include <optional>
#include <string_view>

#include "layouts/place.h"

namespace conmuta::layouts {

// The place of the first dotted key with more than `most` parts; nothing when there is none. A
// parser that makes a table of each part runs out of stack over long ones.
std::optional<Place> FindLongKey(std::string_view toml, int most);

}  // namespace conmuta::layouts
