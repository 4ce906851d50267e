// What a constant of a layout is there for, in a person's words.
#pragma once

#include "layouts/layout.h"

namespace conmuta::layouts {

// Whether no call ever comes of lines that the constant recognises, since what it makes of them has
// no columns for both parties: a trap for noise, or for lines that lost characters, and no mark of
// what its name says. False for the two that tell the morning.
bool IsTrap(emParamDatoConstante kind, const Layout& layout);

// "entrante", "entrante, y además", "o bien entrante", "inicio de transferencia, entrante",
// "mañana". Spanish.
Text Purpose(emParamDatoConstante kind);

}  // namespace conmuta::layouts
