// The standard translation: every item stands at a fixed place of the line. Samsung transfers and
// durations given as a second moment are variants of it.
#include "translate/clsTradEST.h"

namespace conmuta {
namespace {

// A line without its morning marker tells an afternoon hour, when the marker is known at all.
void AdjustAfternoon(LineReader& reader, emParamDatoConstante morning_marker, clsLlamadaTRD& call,
                     emParamTipoFecha group) {
  if (reader.config().SelectCTE(morning_marker) == nullptr) return;
  if (basConmuta::VerificaConstante(morning_marker, reader.config(), reader.line())) return;
  call.AjustarHoraVespertina12Hrs24Hrs(group);
}

}  // namespace

void clsTradEST::TraduceEstandar() {
  LineReader reader = ReadLine();
  reader.ReadStart(call_);
  AdjustAfternoon(reader, emDatoCteIdentificadorHorarioMatutinoFecha, call_, emParamFecha);
  reader.ReadDuration(call_);
  AdjustAfternoon(reader, emDatoCteIdentificadorHorarioMatutinoDuracion, call_, emParamDuracion);
  if (config_->Caso() == emCasoRestaFechasDuracion) call_.AjustaDuracionPorRestaFechas();
  reader.ReadRing(call_);

  call_.TipoLlamada(basConmuta::ObtTipoLlamada(*config_, line_));
  if (call_.TipoLlamada() == emLlamadaIndefinida) {
    call_.TipoLlamada(emLlamadaSaliente);  // hosts rely on unrecognised lines being outgoing
  }
  call_.Atributos(basConmuta::ObtAtributos(*config_, call_.TipoLlamada(), line_));
  reader.ReadPhone(call_);
  reader.ReadParties(call_);
  reader.ReadAccountCode(call_);

  if (config_->Caso() == emCasoSamsungNX_820 && call_.EsValido()) PairTransfer(reader);
}

void clsTradEST::PairTransfer(LineReader& reader) {
  switch (call_.Atributos()) {
    case emAtributoIniTransferida:
      return AltaLlamadaLista();
    case emAtributoFinTransferida:
      return JoinTransferEnd(reader);
    default:
      // An outgoing call without a number never left the switch.
      if (call_.TipoLlamada() == emLlamadaSaliente && call_.Telefono().empty()) {
        call_.Inicializa();
      }
  }
}

void clsTradEST::JoinTransferEnd(LineReader& reader) {
  const std::int16_t slot = FindParkedOnTrunk();
  if (slot == 0) return;
  const clsLlamadaTRD& parked = pending_[slot];
  call_.Telefono(parked.Telefono());
  if (parked.TipoLlamada() == emLlamadaEntrante) {
    call_.ExtensionTransferida(parked.Receptor());
    call_.TipoLlamada(emLlamadaEntrante);
  } else if (parked.TipoLlamada() == emLlamadaSaliente) {
    call_.ExtensionTransferida(parked.Emisor());
    call_.TipoLlamada(emLlamadaSaliente);
  }
  call_.CodigoCuenta(parked.CodigoCuenta());
  QuitaLlamadaLista(slot);
  reader.ReadParties(call_);
}

}  // namespace conmuta
