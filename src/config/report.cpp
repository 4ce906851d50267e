#include "config/report.h"

#include "config/descriptions.h"
#include "platform/format.h"

namespace conmuta {
namespace {

constexpr std::size_t kDescriptionWidth = 60;
constexpr TextView kIndent = u"     ";

TextView TypeName(emTipoDato type) {
  switch (type) {
    case emValorNumerico:
      return u"Numérico";
    case emValorConstante:
      return u"Constante";
    case emValorCadena:
      return u"Cadena";
    default:
      return u"No definido";
  }
}

// What differs between the two sections.
struct Section {
  TextView title;
  std::size_t gap;  // blanks between the title and the columns
  TextView columns;
  std::size_t rule_excess;  // hosts know the two rules to be of different length
};

constexpr Section kItems = {u"VARIABLES (DATOS)", 43, u" POS  TAM  T-DATO", 2};
constexpr Section kConstants = {u"VARIABLES (CONSTANTES)", 38, u" POS  TAM  CONSTANTE", 0};

void AppendHeading(Text& text, const Section& section) {
  const Text heading =
      Text(kIndent).append(section.title).append(section.gap, u' ').append(section.columns);
  text.append(heading).append(kLineBreak);
  text.append(heading.size() + section.rule_excess, u'-').append(kLineBreak);
}

// Number, description, position and size: the columns that both sections share.
void AppendRow(Text& text, int number, TextView description, int position, int size) {
  text.append(PaddedNumber(number, 2)).append(u".- ");
  text.append(AlignLeft(description, kDescriptionWidth, u'.'));
  text.append(AlignRight(ToText(position), 4)).append(u"  ");
  text.append(AlignRight(ToText(size), 3)).append(u"  ");
}

void AppendItems(Text& text, clsCfgConmut& config) {
  AppendHeading(text, kItems);
  int number = 1;
  for (int code = emPrimerParamDato + 1; code < emUltimoParamDato; ++code) {
    const auto kind = static_cast<emParamDato>(code);
    config.DATOActivo(kind);
    if (!config.HayDATO()) continue;
    AppendRow(text, number++, basConmuta::DescDATO(kind), config.DATOPos(), config.DATOTam());
    text.append(TypeName(config.TipoDatoDATO())).append(kLineBreak);
  }
  if (number == 1) text.append(u"No hay datos.").append(kLineBreak);
}

void AppendConstants(Text& text, clsCfgConmut& config) {
  AppendHeading(text, kConstants);
  int number = 1;
  for (int code = emPrimerParamDatoConstante + 1; code < emUltimoParamDatoConstante; ++code) {
    const auto kind = static_cast<emParamDatoConstante>(code);
    config.CTEActivo(kind);
    if (!config.HayCTE()) continue;
    AppendRow(text, number++, basConmuta::DescCTE(kind), config.CTEPos(), config.CTETam());
    text.append(u"$(").append(config.Constante()).append(u")").append(kLineBreak);
  }
  if (number == 1) text.append(u"No hay datos.").append(kLineBreak);
}

}  // namespace

Text ConfigurationReport(clsCfgConmut& config) {
  Text text(kLineBreak);
  text.append(u"   Conmutador  : ").append(config.NombreConmutador()).append(kLineBreak);
  text.append(u"   Versión     : ").append(config.NombreVersion()).append(kLineBreak);
  text.append(u"   Caso        : ").append(config.NombreCaso()).append(kLineBreak);
  text.append(u"   Separadores : ").append(config.ListaSeparador()).append(kLineBreak);
  text.append(kLineBreak).append(kLineBreak);
  AppendItems(text, config);
  text.append(kLineBreak).append(kLineBreak);
  AppendConstants(text, config);
  return text;
}

}  // namespace conmuta
