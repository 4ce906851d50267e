// How the items and constants of a layout belong together for a person who reads them.
#pragma once

#include "platform/text.h"

namespace conmuta::layouts {

// "Fecha y hora", "Entrante, inicio de transferencia": what stands over those that belong together.
Text GroupOf(TextView name);

// The call type that an item or a constant belongs to: "entrante", "saliente", "interna" or
// "inter_troncal"; empty for one that belongs to all.
TextView CallTypeOf(TextView name);

}  // namespace conmuta::layouts
