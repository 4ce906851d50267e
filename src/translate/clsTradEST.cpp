#include "translate/clsTradEST.h"

#include <algorithm>

namespace conmuta {

clsTradEST::clsTradEST(const Clock& clock) : today_(clock), call_(clock), block_call_(clock) {}

void clsTradEST::Llamada(TextView value) {
  line_ = value;
  Translate();
}

void clsTradEST::Conmutador(clsCfgConmut* config) {
  config_ = config;
  if (!line_.empty()) Translate();
}

LineReader clsTradEST::ReadLine() {
  if (config_ == nullptr) throw ObjectNotSetError();
  today_.Forget();
  return LineReader(*config_, line_, today_);
}

void clsTradEST::Translate() {
  line_.erase(0, std::min(line_.find_first_not_of(kLineBreak), line_.size()));
  call_.Inicializa();
  if (config_ == nullptr || !config_->HayConfig() || line_.empty()) return;
  switch (config_->Caso()) {
    case emCasoEstandar:
    case emCasoSamsungNX_820:
    case emCasoRestaFechasDuracion:
      return TraduceEstandar();
    case emCasoNortelMeridian01:
      return TraduceMeridian01();
    case emCasoNortelNorstar0x32SMDR6:
      return TraduceNortelNorstar0x32SMDR6();
    default:
      return;
  }
}

std::int16_t clsTradEST::FindParkedOnTrunk() const {
  switch (call_.TipoLlamada()) {
    case emLlamadaEntrante:
      return BuscaLlamadaTroncalLista(call_.Emisor());
    case emLlamadaSaliente:
      return BuscaLlamadaTroncalLista(call_.Receptor());
    default:
      return 0;
  }
}

}  // namespace conmuta
