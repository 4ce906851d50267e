#include "translate/report.h"

#include <cmath>

#include "platform/format.h"

namespace conmuta {
namespace {

Text FormatDate(DateValue value, const MonthNames& months) {
  const CivilDate date = DateOfDayNumber(static_cast<std::int64_t>(value));
  return PaddedNumber(date.day, 2) + u"/" + months.Abbreviation(date.month) + u"/" +
         PaddedNumber(date.year, 4);
}

Text FormatTime(DateValue value) {
  const auto seconds = std::llround(value * static_cast<double>(kSecondsPerDay)) % kSecondsPerDay;
  return PaddedNumber(seconds / 3600, 2) + u":" + PaddedNumber(seconds / 60 % 60, 2) + u":" +
         PaddedNumber(seconds % 60, 2);
}

TextView TypeName(emTiposLlamadas type) {
  switch (type) {
    case emLlamadaEntrante:
      return u"Entrante";
    case emLlamadaSaliente:
      return u"Saliente";
    case emLlamadaInterExtension:
      return u"Inter-extension";
    case emLlamadaInterTroncal:
      return u"Inter-troncal";
    default:
      return u"No definido";
  }
}

TextView AttributeName(emAtributosLlamadas attribute) {
  switch (attribute) {
    case emAtributoIniTransferida:
      return u"Inicio de transferida";
    case emAtributoFinTransferida:
      return u"Fin de transferida";
    default:
      return u"Sin atributo";
  }
}

}  // namespace

Text TranslationReport(clsTradEST& translator, const MonthNames& months) {
  const clsCfgConmut* config = translator.Conmutador();
  if (config == nullptr) throw ObjectNotSetError();
  const clsLlamadaTRD& call = translator.InfoLlamada();

  Text text(kLineBreak);
  const auto line = [&](TextView label, TextView value) {
    text.append(label).append(value).append(kLineBreak);
  };
  const auto empty_line = [&] { text.append(kLineBreak); };

  line(u"    Conmutador :", config->NombreConmutador());
  line(u"    Version    :", config->NombreVersion());
  line(u"    Caso       :", config->NombreCaso());
  empty_line();
  line(u"  Llamada original : {/", Text(translator.Llamada()).append(u"/}"));
  empty_line();
  empty_line();
  line(u"  Fecha .............: ", FormatDate(call.Fecha(), months));
  line(u"  Hora ..............: ", FormatTime(call.Hora()));
  line(u"  Duración ..........: ", ToText(call.Duracion()));
  line(u"  Ring ..............: ", ToText(call.Ring()));
  line(u"  Teléfono ..........: ", call.Telefono());
  line(u"  Cuenta de usuario .: ", call.CodigoCuenta());
  line(u"  Emisor ............: ", call.Emisor());
  line(u"  Receptor ..........: ", call.Receptor());
  empty_line();
  line(u"  Tipo de llamada....: ", TypeName(call.TipoLlamada()));
  line(u"  Atributos .........: ", AttributeName(call.Atributos()));
  empty_line();
  line(u"  Llamada válida ....: ", call.EsValido() ? u"SI" : u"NO");
  return text;
}

}  // namespace conmuta
