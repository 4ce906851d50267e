// The name that somebody meant who wrote another.
#pragma once

#include <span>

#include "platform/text.h"

namespace conmuta::layouts {

// The name that takes the fewest changed, added and left out letters to get to from `written`,
// whatever its case; empty when all are too far away to be meant.
TextView Nearest(TextView written, std::span<const TextView> names);

}  // namespace conmuta::layouts
