// The slots of a configuration: data items (DATO) and identifying constants (CTE).
#pragma once

#include <cstdint>

#include "config/enums.h"
#include "config/fixed_text.h"

namespace conmuta {

// Where a data item stands in the line. TipoDato 0 marks the slot as released.
struct DATO {
  using Kind = emParamDato;
  static constexpr Kind kLowerBound = emPrimerParamDato;
  static constexpr Kind kUpperBound = emUltimoParamDato;
  static constexpr emTipoDato kTypeWhenWritten = emValorNumerico;

  Kind Param = emNoParamDato;
  emTipoDato TipoDato = emNoDefinido;
  std::uint8_t Pos = 0;  // 1-based column, 0 = not set
  std::uint8_t Tam = 0;  // characters, 0 = not set

  bool operator==(const DATO&) const = default;
};

// Which text must stand where to identify a line.
struct CTE {
  using Kind = emParamDatoConstante;
  static constexpr Kind kLowerBound = emPrimerParamDatoConstante;
  static constexpr Kind kUpperBound = emUltimoParamDatoConstante;
  static constexpr emTipoDato kTypeWhenWritten = emValorConstante;

  Kind Param = emNoParamDatoConstante;
  emTipoDato TipoDato = emNoDefinido;
  std::uint8_t Pos = 0;
  std::uint8_t Tam = 0;
  FixedText<20> Constante;

  bool operator==(const CTE&) const = default;
};

// Whether a code is a kind that a valid slot can have.
template <class Slot>
constexpr bool IsKind(typename Slot::Kind kind) {
  return kind > Slot::kLowerBound && kind < Slot::kUpperBound;
}

constexpr bool DATOValido(const DATO& slot) {
  return slot.Pos != 0 && slot.Tam != 0 && IsKind<DATO>(slot.Param) &&
         slot.TipoDato != emNoDefinido;
}

// The size is not looked at.
inline bool CTEValido(const CTE& slot) {
  return slot.Pos != 0 && IsKind<CTE>(slot.Param) && slot.TipoDato != emNoDefinido &&
         !slot.Constante.Empty();
}

constexpr bool IsValid(const DATO& slot) {
  return DATOValido(slot);
}
inline bool IsValid(const CTE& slot) {
  return CTEValido(slot);
}

}  // namespace conmuta
