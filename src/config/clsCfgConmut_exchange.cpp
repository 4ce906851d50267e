// Exporting and importing: clsCfgConmut's side of the text exchange file.
#include <array>

#include "config/character_codes.h"
#include "config/clsCfgConmut.h"
#include "config/config_errors.h"
#include "config/exchange_lines.h"
#include "config/profile_values.h"
#include "platform/number.h"

namespace conmuta {
namespace {

constexpr TextView kSwitchSection = u"Conmutador";
constexpr TextView kWiringSection = u"Puertos";
constexpr TextView kItemSection = u"Datos";
constexpr TextView kItemKey = u"Dato";
constexpr TextView kConstantSection = u"Constantes";
constexpr TextView kConstantKey = u"Constante";

struct WiringKey {
  TextView key;
  emPuertoSerial pair;
};
constexpr std::array<WiringKey, kConnectorPairs> kWiringKeys = {{
    {u"DB9DB9", emPuertoSerialDB9DB9},
    {u"DB9DB25", emPuertoSerialDB9DB25},
    {u"DB25DB9", emPuertoSerialDB25DB9},
    {u"DB25DB25", emPuertoSerialDB25DB25},
}};

// A file of one line a value has no place for line breaks.
Text WithoutLineBreaks(Text text) {
  for (char16_t& c : text) {
    if (kLineBreak.find(c) != TextView::npos) c = u' ';
  }
  return text;
}

Text NumberedKey(TextView name, int number) {
  return Text(name).append(ToText(number));
}

// What an import says of a header value that it refuses.
constexpr TextView kWrongVersion = u"La versión no es correcta.";
constexpr TextView kNoBrand = u"No se encontro una marca para la configuración del conmutador.";
constexpr TextView kNoModel = u"No se encontro un modelo para la configuración del conmutador.";
constexpr TextView kWrongCase = u"El caso de la configuración no esta soportado.";
constexpr TextView kNoSeparator = u"No hay un separador de llamadas definido.";

// Raised by a check; what it says is known to who catches it.
class CheckFailed {};

void Check(bool passed) {
  if (!passed) throw CheckFailed();
}

}  // namespace

void clsCfgConmut::Exportar(TextView cadArch) {
  if (Trim(cadArch).empty()) throw MakeConfigError(emErrorNoHayArchivo, u"Exportar");
  // Hosts rely on one error for whatever goes wrong.
  bool written = false;
  try {
    written = platform_.profiles.Replace(cadArch, ExchangeValues());
  } catch (...) {
  }
  if (!written) throw MakeConfigError(emErrorConfigExportar, u"Exportar");
}

std::vector<ProfileValue> clsCfgConmut::ExchangeValues() const {
  const CodePage& code_page = platform_.code_page;
  std::vector<ProfileValue> values;
  const auto add = [&](TextView section, TextView key, TextView value) {
    values.push_back(basConmuta::ValorPerfil(code_page, section, key, value));
  };
  add(kSwitchSection, u"Version", ToText(header_.Version));
  add(kSwitchSection, u"Marca", Marca());
  add(kSwitchSection, u"Modelo", Modelo());
  add(kSwitchSection, u"Caso", ToText(header_.Caso));
  add(kSwitchSection, u"Separador", ListaSeparador());
  add(kSwitchSection, u"Comentarios", WithoutLineBreaks(Comentarios()));
  for (const WiringKey& row : kWiringKeys) {
    add(kWiringSection, row.key,
        basConmuta::ListaPinesACadena(header_.Cables.Table(row.pair), LeftPins(row.pair)));
  }
  int number = 0;
  for (const DATO& slot : datos_) {
    if (!DATOValido(slot)) continue;
    add(kItemSection, NumberedKey(kItemKey, ++number), basConmuta::DATOACadena(slot));
  }
  number = 0;
  for (const CTE& slot : ctes_) {
    if (!CTEValido(slot)) continue;
    add(kConstantSection, NumberedKey(kConstantKey, ++number),
        basConmuta::CTEACadena(code_page, slot));
  }
  return values;
}

void clsCfgConmut::Importar(TextView cadArch) {
  const bool was_modified = modified_;
  TextView detail = kWrongVersion;
  try {
    ReadExchange(cadArch, detail);
  } catch (...) {
    // Hosts rely on any failure being reported with the text of the check before it.
    modified_ = was_modified;
    throw MakeConfigError(emErrorConfigImportar, u"Importar",
                          Text(kLineBreak).append(detail).append(kLineBreak).append(cadArch));
  }
  modified_ = false;
  if (listener_ != nullptr) listener_->ConfiguracionCargada();
}

void clsCfgConmut::ReadExchange(TextView path, TextView& detail) {
  const CodePage& code_page = platform_.code_page;
  const auto file = platform_.profiles.Open(path);
  const auto read = [&](TextView section, TextView key) {
    return basConmuta::LeeValorPerfil(code_page, *file, section, key);
  };

  // The header goes into the fields directly, each value as its check passes, without events.
  detail = kWrongVersion;
  const auto version = ReadWholeNumber(read(kSwitchSection, u"Version"));
  Check(version && *version >= emVersionActual && *version <= emVersion3_0);
  header_.Version = static_cast<emVersionConfiguracion>(*version);

  detail = kNoBrand;
  const Text brand = read(kSwitchSection, u"Marca");
  Check(!Trim(brand).empty());
  header_.Marca.Assign(brand);

  detail = kNoModel;
  const Text model = read(kSwitchSection, u"Modelo");
  Check(!Trim(model).empty());
  header_.Modelo.Assign(model);

  detail = kWrongCase;
  Check(IsExactly(read(kSwitchSection, u"Caso"), emCasoEstandar));
  header_.Caso = emCasoEstandar;

  detail = kNoSeparator;
  const Text separator = basConmuta::CodigosACadena(code_page, read(kSwitchSection, u"Separador"));
  Check(!basConmuta::FijaACadena(separator).empty());
  header_.Separador.Assign(separator);

  header_.Comentarios.Assign(read(kSwitchSection, u"Comentarios"));
  for (const WiringKey& row : kWiringKeys) {
    basConmuta::CadenaAListaPines(read(kWiringSection, row.key), header_.Cables.Table(row.pair),
                                  LeftPins(row.pair));
  }

  for (int number = 1;; ++number) {
    const Text line = read(kItemSection, NumberedKey(kItemKey, number));
    if (line.empty()) break;
    const auto item = basConmuta::CadenaADATO(line);
    if (!item) continue;
    DATOActivo(item->Param);
    TipoDatoDATO(item->TipoDato);
    DATOPos(item->Pos);
    DATOTam(item->Tam);
  }
  for (int number = 1;; ++number) {
    const Text line = read(kConstantSection, NumberedKey(kConstantKey, number));
    if (line.empty()) break;
    const auto constant = basConmuta::CadenaACTE(code_page, line);
    if (!constant) continue;
    CTEActivo(constant->Param);
    CTEPos(constant->Pos);
    Constante(constant->Constante.Raw());
  }
}

}  // namespace conmuta
