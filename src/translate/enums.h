// The public vocabulary of a call record. Names and codes are those of the type library.
#pragma once

#include <cstdint>

namespace conmuta {

enum emTiposLlamadas : std::int32_t {
  emLlamadaNoAnalizada = 0,
  emLlamadaIndefinida = 1,
  emLlamadaEntrante = 2,
  emLlamadaSaliente = 3,
  emLlamadaInterExtension = 4,
  emLlamadaInterTroncal = 5,
  emLlamadaCodigoCuenta = 6,
};

enum emAtributosLlamadas : std::int32_t {
  emSinAtributo = 0,
  emAtributoIniTransferida = 1,
  emAtributoEnTransferencia = 2,
  emAtributoFinTransferida = 3,
};

// Which time of a call a property addresses: its start, its duration, the ringing.
enum emParamTipoFecha : std::int32_t {
  emNoParamFecha = 0,
  emParamFecha = 1,
  emParamDuracion = 2,
  emParamRING = 3,
};

}  // namespace conmuta
