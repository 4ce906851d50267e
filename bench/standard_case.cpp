// The standard case beside the parser written by hand: same lines, same results, turn by turn.
#include <ctime>

#include "kx_parser.h"
#include "place.h"
#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

emAtributosLlamadas AttributeOf(kx::Transfer transfer) {
  switch (transfer) {
    case kx::Transfer::kBegins:
      return emAtributoIniTransferida;
    case kx::Transfer::kEnds:
      return emAtributoFinTransferida;
    default:
      return emSinAtributo;
  }
}

bool Same(const clsLlamadaTRD& a, const kx::Call& b) {
  return a.Anio(emParamFecha) == b.year && a.Mes(emParamFecha) == b.month &&
         a.Dia(emParamFecha) == b.day && a.Horas(emParamFecha) == b.hour &&
         a.Minutos(emParamFecha) == b.minute && a.Segundos(emParamFecha) == 0 &&
         a.Anio(emParamDuracion) == 0 && a.Mes(emParamDuracion) == 0 &&
         a.Dia(emParamDuracion) == 0 && a.Duracion() == b.duration && a.Ring() == b.ring &&
         a.TipoLlamada() == static_cast<emTiposLlamadas>(b.type) &&
         a.Atributos() == AttributeOf(b.transfer) && a.Telefono() == b.phone.view() &&
         a.Emisor() == b.caller.view() && a.Receptor() == b.callee.view() &&
         a.CodigoCuenta() == b.account.view() && a.ExtensionTransferida().empty();
}

kx::Date Today() {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday};
}

// A yardstick that does less than what it measures would be none.
bool AllTheSame(Translator& translator, const Lines& lines) {
  const kx::Date today = Today();
  kx::Parser parser(today);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    translator.Translate(lines[i]);
    if (Same(translator.call(), parser.Parse(lines[i]))) continue;
    // The day has changed meanwhile, for one of the two.
    if (Today().day != today.day) return AllTheSame(translator, lines);
    return false;
  }
  return true;
}

}  // namespace

void MeasureStandardCase(const Lines& lines) {
  Translator translator("panasonic-kx");
  Require(AllTheSame(translator, lines), "translator and parser written by hand agree");
  kx::Parser parser(Today());
  const auto spent = BestOfTurns({
      [&] { translator.Translate(lines); },
      [&] {
        for (std::size_t i = 0; i < lines.size(); ++i) parser.Parse(lines[i]);
      },
  });
  const auto count = static_cast<double>(lines.size());
  PrintRow("standard case", spent[0] / count, "ns a line");
  PrintRow("parser written by hand", spent[1] / count, "ns a line");
  PrintRow("standard case to parser", spent[0] / spent[1], "times", kMostTimesByHand);
}

}  // namespace conmuta::bench
