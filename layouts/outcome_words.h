// The words of expected.txt for types, transfers, reasons and errors.
#pragma once

#include <optional>
#include <span>

#include "translate/enums.h"
#include "translate/verdict.h"

namespace conmuta::layouts {

template <class Code>
struct Word {
  TextView word;
  Code code;
};

inline constexpr Word<emTiposLlamadas> kTypeWords[] = {
    {u"Entrante", emLlamadaEntrante},
    {u"Saliente", emLlamadaSaliente},
    {u"Inter-extension", emLlamadaInterExtension},
    {u"Inter-troncal", emLlamadaInterTroncal}};

inline constexpr Word<emAtributosLlamadas> kTransferWords[] = {
    {u"-", emSinAtributo},
    {u"Inicio", emAtributoIniTransferida},
    {u"En curso", emAtributoEnTransferencia},
    {u"Fin", emAtributoFinTransferida}};

// Without those that no complete layout gives.
inline constexpr Word<NoCall> kReasonWords[] = {
    {u"vacia", NoCall::kEmptyLine},
    {u"sin digitos", NoCall::kNoDigits},
    {u"tipo desconocido", NoCall::kUnknownType},
    {u"sin emisor", NoCall::kNoCaller},
    {u"sin receptor", NoCall::kNoCallee},
    {u"sin fecha", NoCall::kNoDate},
    {u"sin numero", NoCall::kNoNumber},
    {u"codigo de cuenta", NoCall::kAccountCode},
    {u"lista llena", NoCall::kListFull},
    {u"registro desconocido", NoCall::kUnknownRecord},
    {u"fuera de bloque", NoCall::kOutsideBlock},
    {u"empieza bloque", NoCall::kBlockBegins},
    {u"parte de bloque", NoCall::kPartOfBlock},
    {u"transferencia no encontrada", NoCall::kTransferNotFound}};

inline constexpr Word<LineError> kErrorWords[] = {{u"error 6", LineError::kOverflow},
                                                  {u"error 5", LineError::kInvalidArgument}};

template <class Code, std::size_t kCount>
std::optional<Code> FindCode(const Word<Code> (&words)[kCount], TextView word) {
  for (const auto& row : words) {
    if (row.word == word) return row.code;
  }
  return std::nullopt;
}

template <class Code, std::size_t kCount>
TextView FindWord(const Word<Code> (&words)[kCount], Code code) {
  for (const auto& row : words) {
    if (row.code == code) return row.word;
  }
  return u"?";
}

}  // namespace conmuta::layouts
