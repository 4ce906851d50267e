// What a configuration holds beside its slots: the part that a file keeps in its header.
#pragma once

#include "cable/wiring.h"
#include "config/enums.h"
#include "config/fixed_text.h"

namespace conmuta {

struct ConfigHeader {
  emVersionConfiguracion Version = emVersion3_0;
  FixedText<50> Marca;
  FixedText<50> Modelo;
  FixedText<250> Comentarios;
  FixedText<10> Separador;
  emCasos Caso = emCasoEstandar;
  Wiring Cables;

  bool operator==(const ConfigHeader&) const = default;
};

}  // namespace conmuta
