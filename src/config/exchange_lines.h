// The values of the text exchange file: how wiring, data items and constants are written and read.
#pragma once

#include <optional>
#include <span>

#include "cable/wiring.h"
#include "config/slots.h"
#include "platform/code_page.h"

namespace conmuta::basConmuta {

// The masks of the left pins 1 to `pins`, each followed by ",".
Text ListaPinesACadena(std::span<const WiringMask> table, int pins);

// Fills the masks of the left pins 1 to `pins`. A piece that is missing, no number or longer than
// ten characters counts as 0; OverflowError for a number beyond 32 bits, the pins before it being
// filled by then.
void CadenaAListaPines(TextView text, std::span<WiringMask> table, int pins);

// Kind, type, position and size, each followed by ","; for a constant then its 20 characters as
// codes between "$(" and ")".
Text DATOACadena(const DATO& slot);
Text CTEACadena(const CodePage& code_page, const CTE& slot);

// Nothing for a line that is not valid: a kind outside 2 to 53 (for constants too), a type outside
// 1 to 3, a position or size outside 1 to 255, a constant without its list.
std::optional<DATO> CadenaADATO(TextView line);
std::optional<CTE> CadenaACTE(const CodePage& code_page, TextView line);

}  // namespace conmuta::basConmuta
