// Messages of the workshop as one text.
#pragma once

#include "taller/message.h"

namespace conmuta::taller {

// "FechaMes: ...", one after the other.
Text Said(const Messages& messages);

}  // namespace conmuta::taller
