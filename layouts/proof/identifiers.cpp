#include "layouts/proof/identifiers.h"

#include <algorithm>
#include <optional>

#include "translate/call_slots.h"

namespace conmuta::layouts {
namespace {

// What lines that a constant recognises become.
struct Recognised {
  emTiposLlamadas type;
  emAtributosLlamadas attribute;
  Text purpose;
};

TextView TypeText(emTiposLlamadas type) {
  switch (type) {
    case emLlamadaEntrante:
      return u"entrante";
    case emLlamadaSaliente:
      return u"saliente";
    case emLlamadaInterExtension:
      return u"interna";
    default:
      return u"entre troncales";
  }
}

std::optional<Recognised> Find(emParamDatoConstante kind) {
  for (const TypeIdentifiers& row : kTypeIdentifiers) {
    const Text type(TypeText(row.type));
    if (kind == row.plain) return Recognised{row.type, emSinAtributo, type};
    if (kind == row.also) return Recognised{row.type, emSinAtributo, type + u", y además"};
    if (kind == row.instead) return Recognised{row.type, emSinAtributo, u"o bien " + type};
    if (kind == row.transfer_start) {
      return Recognised{row.type, emAtributoIniTransferida, u"inicio de transferencia, " + type};
    }
    if (kind == row.transfer_end) {
      return Recognised{row.type, emAtributoFinTransferida, u"fin de transferencia, " + type};
    }
  }
  return std::nullopt;
}

}  // namespace

bool IsTrap(emParamDatoConstante kind, const Layout& layout) {
  const auto recognised = Find(kind);
  if (!recognised) return false;
  const CallSlots* slots = FindCallSlots(recognised->type, recognised->attribute);
  const auto has = [&](emParamDato item) {
    return std::any_of(layout.items.begin(), layout.items.end(),
                       [&](const DATO& slot) { return slot.Param == item; });
  };
  return !has(slots->caller) || !has(slots->callee);
}

Text Purpose(emParamDatoConstante kind) {
  const auto recognised = Find(kind);
  return recognised ? recognised->purpose : Text(u"mañana, en un reloj de 12 horas");
}

}  // namespace conmuta::layouts
