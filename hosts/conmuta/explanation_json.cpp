#include <nlohmann/json.hpp>

#include "conmuta/call_fields.h"
#include "conmuta/explanation.h"
#include "conmuta/json_text.h"
#include "conmuta/put.h"
#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "layouts/names.h"

namespace conmuta::host {
namespace {

using Json = nlohmann::ordered_json;

Json OrNull(std::string_view text) {
  return text.empty() ? Json() : Json(text);
}

Json CallJson(const clsLlamadaTRD& call) {
  char field[kMostOfMoment];
  const Moment moment = MomentOf(call);
  Json json;
  json["tipo"] = TypeWord(call.TipoLlamada());
  json["transferencia"] = OrNull(TransferWord(call.Atributos()));
  json["fecha"] = std::string(field, PutDate(field, moment));
  json["hora"] = std::string(field, PutTime(field, moment));
  const auto duration = layouts::KnownDuration(call);
  json["duracion_s"] = duration ? Json(*duration) : Json();
  json["timbre_s"] = call.Ring();
  json["emisor"] = Utf8(call.Emisor());
  json["receptor"] = Utf8(call.Receptor());
  json["telefono"] = Utf8(call.Telefono());
  json["extension_transferida"] = Utf8(call.ExtensionTransferida());
  json["cuenta"] = Utf8(call.CodigoCuenta());
  return json;
}

}  // namespace

std::string ExplanationJson(const Explanation& explanation, const clsLlamadaTRD& call) {
  const Verdict& verdict = explanation.verdict;
  Json json;
  json["formato"] = 1;
  json["linea"] = explanation.number;
  json["texto"] = Utf8(explanation.line);
  json["motivo"] = OrNull(ReasonWord(verdict));
  json["oracion"] = Utf8(Sentence(verdict));
  json["en_espera"] = verdict.parked;
  json["llamada"] = verdict.IsCall() ? CallJson(call) : Json();
  json["datos"] = Json::array();
  for (const auto& item : explanation.items) {
    json["datos"].push_back(
        {{"nombre", Utf8(layouts::NameOf(item.kind))},
         {"posicion", item.pos},
         {"tamano", item.size},
         {"texto", Utf8(item.found)},
         {"valor", Utf8(item.value)},
         {"error", item.error != LineError::kNone ? Json(Utf8(Sentence(item.error))) : Json()}});
  }
  json["constantes"] = Json::array();
  for (const auto& constant : explanation.constants) {
    json["constantes"].push_back({{"nombre", Utf8(layouts::NameOf(constant.kind))},
                                  {"posicion", constant.pos},
                                  {"tamano", constant.size},
                                  {"quiere", Utf8(constant.wanted)},
                                  {"hay", Utf8(constant.found)},
                                  {"coincide", constant.stands}});
  }
  return JsonLine(json);
}

}  // namespace conmuta::host
