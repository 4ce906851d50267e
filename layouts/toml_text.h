// Values as a layout file writes them.
#pragma once

#include <span>
#include <string>

#include "layouts/layout.h"

namespace conmuta::layouts {

// Between double quotes, control characters escaped; half a surrogate pair becomes "?".
std::string Quoted(TextView text);

// The same without quotes and on one line, for comments: what cannot stand there becomes a blank.
std::string InComment(TextView text);

// "numerico", or the number of a type or a case that has no word.
std::string TypeText(emTipoDato type);
std::string CaseText(emCasos code);

// "{ pos = 1, tam = 2 }", with a type that is not the usual one, and the leave for what a reader
// would refuse.
std::string SlotText(const DATO& item);
std::string SlotText(const CTE& constant);
// The same without that leave.
std::string CheckedText(const DATO& item);
std::string CheckedText(const CTE& constant);

// "4" or "[1, 6]".
std::string PinsText(WiringMask mask);

// The text of a constant, without the NULs that fill it up.
TextView StoredText(const CTE& constant);
bool NeedsLeave(const DATO& item);
bool NeedsLeave(const CTE& constant);

}  // namespace conmuta::layouts
