#include "layouts/groups.h"

namespace conmuta::layouts {
namespace {

struct Common {
  TextView begin;  // of the names
  TextView title;
};
constexpr Common kCommon[] = {{u"Fecha", u"Fecha y hora"},
                              {u"Duracion", u"Duración"},
                              {u"Ring", u"Timbre"},
                              {u"CodigoCuenta", u"Cuenta"},
                              {u"IdentificadorHorario", u"Horario matutino"}};

struct CallType {
  TextView part;  // of the names
  TextView key;
  TextView title;
};
// ExtensionEntrante, yet Extension1InterExtension: the longer parts first.
constexpr CallType kCallTypes[] = {{u"InterExtension", u"interna", u"Entre extensiones"},
                                   {u"InterTroncal", u"inter_troncal", u"Entre troncales"},
                                   {u"Entrante", u"entrante", u"Entrante"},
                                   {u"Saliente", u"saliente", u"Saliente"}};

const CallType* FindCallType(TextView name) {
  for (const CallType& type : kCallTypes) {
    if (name.find(type.part) != TextView::npos) return &type;
  }
  return nullptr;
}

}  // namespace

Text GroupOf(TextView name) {
  for (const Common& group : kCommon) {
    if (name.starts_with(group.begin)) return Text(group.title);
  }
  const CallType* type = FindCallType(name);
  if (type == nullptr) return {};
  Text title(type->title);
  if (name.ends_with(u"InicioTransferida")) title += u", inicio de transferencia";
  if (name.ends_with(u"FinTransferida")) title += u", fin de transferencia";
  return title;
}

TextView CallTypeOf(TextView name) {
  const CallType* type = FindCallType(name);
  return type != nullptr ? type->key : TextView();
}

}  // namespace conmuta::layouts
