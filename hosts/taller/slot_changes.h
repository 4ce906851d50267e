// Changes of one item or constant, as both the lines and the layout's pane make them.
#pragma once

#include "taller/document.h"

namespace conmuta::taller {

// What a constant is told apart by. A text beyond what it can hold is said and not cut.
[[nodiscard]] Messages ChangeConstant(Document& document, emParamDatoConstante kind,
                                      std::uint8_t pos, TextView text,
                                      Document::As as = Document::As::kStep);

}  // namespace conmuta::taller
