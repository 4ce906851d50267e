// The Spanish texts that stand for the codes of the vocabulary.
#pragma once

#include "config/enums.h"
#include "platform/text.h"

namespace conmuta {

namespace basConmuta {

// Description of a kind; "No parametro" for every code that is not a valid kind.
TextView DescDATO(emParamDato kind);
TextView DescCTE(emParamDatoConstante kind);

}  // namespace basConmuta

// Name of a translation case; empty for every code outside 0 to 5.
TextView CaseName(emCasos code);

// "2.0", "3.0", or "No hay versión" for every other code.
TextView VersionName(emVersionConfiguracion code);

// Message of a configuration error; "Error desconocido." for every code that has none.
TextView ObtMensajeError(emErroresConfig code);

}  // namespace conmuta
