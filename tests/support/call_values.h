// All that a call record holds, as plain values that compare and print.
#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <ostream>
#include <string>

#include "translate/clsLlamadaTRD.h"

namespace conmuta::test {

// Printable ASCII as it is, the rest as \uXXXX.
inline std::string Ascii(TextView text) {
  std::string shown;
  for (const char16_t c : text) {
    if (c >= u' ' && c < 0x7F) {
      shown.push_back(static_cast<char>(c));
      continue;
    }
    char escape[16];
    std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
    shown += escape;
  }
  return shown;
}

struct CallValues {
  // Year, month, day, hours, minutes, seconds.
  std::array<int, 6> start{};
  std::array<int, 6> duration{};
  int ring = 0;
  int type = emLlamadaIndefinida;
  int attribute = emSinAtributo;
  Text phone;
  Text transferred_to;
  Text caller;
  Text callee;
  Text account;

  bool operator==(const CallValues&) const = default;
};

inline CallValues ValuesOf(const clsLlamadaTRD& call) {
  const auto group = [&](emParamTipoFecha index) {
    return std::array<int, 6>{call.Anio(index),  call.Mes(index),     call.Dia(index),
                              call.Horas(index), call.Minutos(index), call.Segundos(index)};
  };
  CallValues values;
  values.start = group(emParamFecha);
  values.duration = group(emParamDuracion);
  values.ring = call.Ring();
  values.type = call.TipoLlamada();
  values.attribute = call.Atributos();
  values.phone = call.Telefono();
  values.transferred_to = call.ExtensionTransferida();
  values.caller = call.Emisor();
  values.callee = call.Receptor();
  values.account = call.CodigoCuenta();
  return values;
}

inline std::ostream& operator<<(std::ostream& out, const CallValues& call) {
  out << "start";
  for (const int part : call.start) out << ' ' << part;
  out << ", duration";
  for (const int part : call.duration) out << ' ' << part;
  return out << ", ring " << call.ring << ", type " << call.type << ", attribute " << call.attribute
             << ", phone [" << Ascii(call.phone) << "], transferred to ["
             << Ascii(call.transferred_to) << "], caller [" << Ascii(call.caller) << "], callee ["
             << Ascii(call.callee) << "], account [" << Ascii(call.account) << "]";
}

// The record as it is when nothing was translated.
inline bool IsCleared(const clsLlamadaTRD& call) {
  return ValuesOf(call) == CallValues{};
}

}  // namespace conmuta::test
