// What a layout may say and no translator can do.
#pragma once

#include "layouts/layout.h"
#include "taller/message.h"

namespace conmuta::taller {

// By the item or constant that says it.
Messages DoubtsOf(const layouts::Layout& layout);

}  // namespace conmuta::taller
