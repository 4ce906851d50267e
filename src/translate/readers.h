// How one item is read out of a line, each by a procedure of its own: LineReader's rules under the
// names that the field knows them by. A translation uses the reader itself, which compiles a
// configuration once and not for each item.
//
// Each addresses the slots that it looks at, so the configuration's DATOActivo and CTEActivo are
// afterwards those looked at last; hosts can see that. Nothing else of it changes. A missing slot
// or a short line is no error. OverflowError is raised for a slot whose position plus size exceeds
// 255, and for digits beyond the width of the result.
#pragma once

#include <cstdint>

#include "config/clsCfgConmut.h"
#include "platform/clock.h"
#include "translate/bounded_text.h"
#include "translate/enums.h"

namespace conmuta::basConmuta {

// Room for the text of a field when it cannot be shown as a piece of the line.
using FieldBuffer = BoundedText<255>;

// The text at the slot's place, cut at the end of the line; for a numeric slot its digits only.
// The answer lives as long as both line and buffer.
TextView LeeDatoTexto(emParamDato kind, clsCfgConmut& config, TextView line, FieldBuffer& buffer);

// Whether the constant stands at its place: exact, letter case included.
bool VerificaConstante(emParamDatoConstante kind, clsCfgConmut& config, TextView line);

// 0 unless the slot is numeric and holds digits. Up to four digits are completed with those of the
// current year, 80 to 99 mean 1980 to 1999; a year before the current one becomes the current one.
std::int16_t LeeAnio(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock);

// 0 unless the slot is numeric; today's where the line holds no number of 1 to 12, or 1 to 31.
std::int16_t LeeMes(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock);
std::int16_t LeeDia(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock);

// 0 for what is no number or is negative; minutes and seconds end at 59.
std::int32_t LeeHoras(clsCfgConmut& config, emParamDato kind, TextView line);
std::int32_t LeeMinutos(clsCfgConmut& config, emParamDato kind, TextView line);
std::int32_t LeeSegundos(clsCfgConmut& config, emParamDato kind, TextView line);

// The first of incoming, outgoing, inter-extension and inter-trunk whose identifiers match;
// undefined when none does, or the line has no digit.
emTiposLlamadas ObtTipoLlamada(clsCfgConmut& config, TextView line);

// Start or end of a transfer, or neither, by the identifiers of the call type.
emAtributosLlamadas ObtAtributos(clsCfgConmut& config, emTiposLlamadas type, TextView line);

// The number and the parties, from the slots that belong to type and attribute; empty for a type
// outside incoming to inter-trunk, and in the middle of a transfer.
TextView ObtTelefono(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer);
TextView ObtEmisor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                   TextView line, FieldBuffer& buffer);
TextView ObtReceptor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer);

}  // namespace conmuta::basConmuta
