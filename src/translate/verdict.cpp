#include "translate/verdict.h"

namespace conmuta {

TextView Sentence(NoCall reason) {
  switch (reason) {
    case NoCall::kNone:
      return u"La línea da una llamada.";
    case NoCall::kNoConfiguration:
      return u"No hay configuración de conmutador.";
    case NoCall::kIncompleteConfiguration:
      return u"A la configuración le falta la marca, el modelo, la versión o el caso.";
    case NoCall::kEmptyLine:
      return u"La línea está vacía.";
    case NoCall::kNoTranslation:
      return u"El caso de la configuración no tiene traducción.";
    case NoCall::kNoDigits:
      return u"La línea no tiene dígitos.";
    case NoCall::kUnknownType:
      return u"Ningún identificador reconoce el tipo de llamada.";
    case NoCall::kNoCaller:
      return u"Falta el emisor.";
    case NoCall::kNoCallee:
      return u"Falta el receptor.";
    case NoCall::kNoDate:
      return u"Falta la fecha.";
    case NoCall::kNoNumber:
      return u"Es una llamada saliente sin número marcado: se descarta.";
    case NoCall::kAccountCode:
      return u"Es un código de cuenta: se guarda para la llamada que sigue.";
    case NoCall::kListFull:
      return u"Es un código de cuenta y la lista de espera está llena: se pierde.";
    case NoCall::kUnknownRecord:
      return u"La letra del registro no se conoce: se descarta.";
    case NoCall::kOutsideBlock:
      return u"La línea está fuera de un bloque.";
    case NoCall::kBlockBegins:
      return u"Aquí empieza un bloque.";
    case NoCall::kPartOfBlock:
      return u"Es parte de un bloque que aún no termina.";
    case NoCall::kTransferNotFound:
      return u"Ninguna llamada espera una transferencia en esa troncal: el bloque se descarta.";
  }
  return {};
}

TextView Sentence(LineError error) {
  switch (error) {
    case LineError::kNone:
      return u"No hay error.";
    case LineError::kOverflow:
      return u"Desbordamiento: un número es demasiado grande o un dato pasa de la columna 254.";
    case LineError::kInvalidArgument:
      return u"Argumento no válido: una fecha fuera del calendario o una línea de bloque demasiado "
             u"corta.";
  }
  return {};
}

TextView Sentence(const Verdict& verdict) {
  if (verdict.error != LineError::kNone) return Sentence(verdict.error);
  if (verdict.IsCall() && verdict.parked) {
    return u"La línea da una llamada, que queda en espera del fin de su transferencia.";
  }
  return Sentence(verdict.reason);
}

}  // namespace conmuta
