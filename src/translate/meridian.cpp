// Nortel Meridian: one line a record, whose first letter tells what it is. Records of one call are
// tied together by their trunk.
#include "translate/clsTradEST.h"

namespace conmuta {

void clsTradEST::TraduceMeridian01() {
  LineReader reader = ReadLine();
  reader.ReadStart(call_);
  call_.TipoLlamada(basConmuta::ObtTipoLlamada(*config_, line_));
  if (call_.TipoLlamada() == emLlamadaIndefinida) return;
  reader.ReadPhone(call_);
  reader.ReadParties(call_);

  const char16_t record = line_.empty() ? kNul : ToUpper(line_.front());
  if (record == u'A') {
    // An account code for the call to come: kept, never delivered.
    reader.ReadAccountCode(call_);
    call_.TipoLlamada(emLlamadaCodigoCuenta);
    AltaLlamadaLista();
    call_.Inicializa();
    return;
  }

  reader.ReadDuration(call_);
  const std::int16_t slot = FindParkedOnTrunk();
  clsLlamadaTRD* parked = slot != 0 ? &pending_[slot] : nullptr;
  const auto take_account_code = [&] {
    if (parked != nullptr) call_.CodigoCuenta(parked->CodigoCuenta());
  };
  switch (record) {
    case u'N':  // a whole call
      take_account_code();
      QuitaLlamadaLista(slot);
      break;
    case u'S':  // a transfer begins; it takes the place of a kept account code
      call_.Atributos(emAtributoIniTransferida);
      take_account_code();
      if (parked != nullptr) {
        parked->CopiaLlamada(call_);
      } else {
        AltaLlamadaLista();
      }
      break;
    case u'X':  // a transfer goes on
      take_account_code();
      if (parked != nullptr) call_.Atributos(emAtributoEnTransferencia);
      break;
    case u'E':  // a transfer ends
      call_.Atributos(emAtributoFinTransferida);
      take_account_code();
      if (parked != nullptr) {
        call_.ExtensionTransferida(parked->TipoLlamada() == emLlamadaEntrante ? parked->Receptor()
                                                                              : parked->Emisor());
      }
      QuitaLlamadaLista(slot);
      break;
    default:
      call_.Inicializa();
  }
}

}  // namespace conmuta
