// A call whose items all stand at fixed places of one line: the standard translation and those that
// are variants of it.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

// A line without its morning marker tells an afternoon hour, when the marker is known at all.
template <class Watch>
bool AdjustAfternoon(LineReader<Watch>& line, emParamDatoConstante morning_marker,
                     clsLlamadaTRD& call, emParamTipoFecha group) {
  if (!line.IsDefined(morning_marker)) return true;
  bool is_morning = false;
  if (!line.Stands(morning_marker, is_morning)) return false;
  call.AdjustTwelveHourClock(group, !is_morning);
  return true;
}

template <class Watch, class AdjustDuration>
bool ReadFixedColumns(LineReader<Watch>& line, clsLlamadaTRD& call, AdjustDuration adjust) {
  if (!line.ReadStart(call)) return false;
  if (!AdjustAfternoon(line, emDatoCteIdentificadorHorarioMatutinoFecha, call, emParamFecha)) {
    return false;
  }
  if (!line.ReadDuration(call)) return false;
  if (!AdjustAfternoon(line, emDatoCteIdentificadorHorarioMatutinoDuracion, call,
                       emParamDuracion)) {
    return false;
  }
  if (!line.Check(adjust(call))) return false;
  if (!line.ReadRing(call)) return false;

  emTiposLlamadas type = emLlamadaIndefinida;
  if (!line.CallType(type)) return false;
  // Hosts rely on unrecognised lines being outgoing.
  call.TipoLlamada(type != emLlamadaIndefinida ? type : emLlamadaSaliente);
  emAtributosLlamadas attribute = emSinAtributo;
  if (!line.Attribute(call.TipoLlamada(), attribute)) return false;
  call.Atributos(attribute);
  return line.ReadPhoneAndParties(call) && line.ReadAccountCode(call);
}

// `adjust` may change the duration once start and duration are read; it answers its error.
//
// Flat, and by a reader of its own: with the kinds known at each place and nothing of the reader
// in memory, most of the work falls away.
template <class Watch, class AdjustDuration>
[[gnu::flatten]] bool ReadFixedColumns(Work<Watch>& work, AdjustDuration adjust) {
  LineReader<Watch> line = work.line;
  const bool could = ReadFixedColumns(line, work.call, adjust);
  work.line.GoOnAfter(line);
  return could;
}

template <class Watch>
bool ReadFixedColumns(Work<Watch>& work) {
  return ReadFixedColumns(work, [](clsLlamadaTRD&) { return LineError::kNone; });
}

}  // namespace conmuta
