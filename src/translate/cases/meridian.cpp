#include "translate/cases/meridian.h"

namespace conmuta {
namespace {

// An account code for the call to come: kept, never delivered.
template <class Watch>
bool KeepAccountCode(Work<Watch>& work) {
  clsLlamadaTRD& call = work.call;
  if (!work.line.ReadAccountCode(call)) return false;
  call.TipoLlamada(emLlamadaCodigoCuenta);
  work.line.watch().Because(work.Park() ? NoCall::kAccountCode : NoCall::kListFull);
  call.Inicializa();
  return true;
}

}  // namespace

template <class Watch>
bool Meridian::Translate(Work<Watch>& work) {
  LineReader<Watch>& line = work.line;
  clsLlamadaTRD& call = work.call;
  if (!line.ReadStart(call)) return false;
  emTiposLlamadas type = emLlamadaIndefinida;
  if (!line.CallType(type)) return false;
  call.TipoLlamada(type);
  if (type == emLlamadaIndefinida) {
    line.watch().Because(NoCall::kUnknownType);
    return true;
  }
  if (!line.ReadPhoneAndParties(call)) return false;

  const char16_t record = line.line().empty() ? kNul : ToUpper(line.line().front());
  if (record == u'A') return KeepAccountCode(work);

  if (!line.ReadDuration(call)) return false;
  PendingCalls& pending = work.pending;
  const std::int16_t slot = work.FindParkedOnTrunk();
  const clsLlamadaTRD* parked = slot != 0 ? &pending[slot] : nullptr;
  const auto take_account_code = [&] {
    if (parked != nullptr) call.CodigoCuenta(parked->CodigoCuenta());
  };
  switch (record) {
    case u'N':  // a whole call
      take_account_code();
      pending.Free(slot);
      break;
    case u'S':  // a transfer begins; it takes the place of a kept account code
      call.Atributos(emAtributoIniTransferida);
      take_account_code();
      if (parked != nullptr) {
        pending.Replace(slot, call);
        line.watch().Parked();
      } else {
        work.Park();
      }
      break;
    case u'X':  // a transfer goes on
      take_account_code();
      if (parked != nullptr) call.Atributos(emAtributoEnTransferencia);
      break;
    case u'E':  // a transfer ends
      call.Atributos(emAtributoFinTransferida);
      take_account_code();
      if (parked != nullptr) {
        call.ExtensionTransferida(parked->TipoLlamada() == emLlamadaEntrante ? parked->Receptor()
                                                                             : parked->Emisor());
      }
      pending.Free(slot);
      break;
    default:
      line.watch().Because(NoCall::kUnknownRecord);
      call.Inicializa();
  }
  return true;
}

CONMUTA_TRANSLATION(Meridian);

}  // namespace conmuta
