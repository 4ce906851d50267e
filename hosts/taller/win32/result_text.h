// What the component makes of a line, in sentences to be read.
#pragma once

#include "platform/text.h"
#include "taller/result.h"

namespace conmuta::taller {

Text TextOf(const Result& result);

}  // namespace conmuta::taller
