#include "translate/cases/samsung.h"

#include "translate/cases/fixed_columns.h"

namespace conmuta {
namespace {

template <class Watch>
bool JoinTransferEnd(Work<Watch>& work) {
  const std::int16_t slot = work.FindParkedOnTrunk();
  if (slot == 0) return true;
  const clsLlamadaTRD& parked = work.pending[slot];
  clsLlamadaTRD& call = work.call;
  call.Telefono(parked.Telefono());
  if (parked.TipoLlamada() == emLlamadaEntrante) {
    call.ExtensionTransferida(parked.Receptor());
    call.TipoLlamada(emLlamadaEntrante);
  } else if (parked.TipoLlamada() == emLlamadaSaliente) {
    call.ExtensionTransferida(parked.Emisor());
    call.TipoLlamada(emLlamadaSaliente);
  }
  call.CodigoCuenta(parked.CodigoCuenta());
  work.pending.Free(slot);
  return work.line.ReadParties(call);
}

}  // namespace

template <class Watch>
bool Samsung::Translate(Work<Watch>& work) {
  if (!ReadFixedColumns(work)) return false;
  clsLlamadaTRD& call = work.call;
  if (!call.EsValido()) return true;
  switch (call.Atributos()) {
    case emAtributoIniTransferida:
      work.Park();
      return true;
    case emAtributoFinTransferida:
      return JoinTransferEnd(work);
    default:
      // An outgoing call without a number never left the switch.
      if (call.TipoLlamada() == emLlamadaSaliente && call.Telefono().empty()) {
        work.line.watch().Because(NoCall::kNoNumber);
        call.Inicializa();
      }
      return true;
  }
}

CONMUTA_TRANSLATION(Samsung);

}  // namespace conmuta
