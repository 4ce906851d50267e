#include "layouts/names.h"

#include <algorithm>

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 52> kItems = {
    u"FechaDia",
    u"FechaMes",
    u"FechaAnio",
    u"FechaHoras",
    u"FechaMinutos",
    u"FechaSegundos",
    u"DuracionDia",
    u"DuracionMes",
    u"DuracionAnio",
    u"DuracionHoras",
    u"DuracionMinutos",
    u"DuracionSegundos",
    u"RingHoras",
    u"RingMinutos",
    u"RingSegundos",
    u"CodigoCuenta",
    u"TelefonoEntrante",
    u"TelefonoSaliente",
    u"TelefonoInterExtension",
    u"TelefonoInterTroncal",
    u"TelefonoEntranteInicioTransferida",
    u"TelefonoEntranteFinTransferida",
    u"TelefonoSalienteInicioTransferida",
    u"TelefonoSalienteFinTransferida",
    u"TelefonoInterExtensionInicioTransferida",
    u"TelefonoInterExtensionFinTransferida",
    u"TelefonoInterTroncalInicioTransferida",
    u"TelefonoInterTroncalFinTransferida",
    u"TroncalEntrante",
    u"ExtensionEntrante",
    u"TroncalSaliente",
    u"ExtensionSaliente",
    u"Extension1InterExtension",
    u"Extension2InterExtension",
    u"Troncal1InterTroncal",
    u"Troncal2InterTroncal",
    u"TroncalEntranteInicioTransferida",
    u"ExtensionEntranteInicioTransferida",
    u"TroncalEntranteFinTransferida",
    u"ExtensionEntranteFinTransferida",
    u"TroncalSalienteInicioTransferida",
    u"ExtensionSalienteInicioTransferida",
    u"TroncalSalienteFinTransferida",
    u"ExtensionSalienteFinTransferida",
    u"Extension1InterExtensionInicioTransferida",
    u"Extension2InterExtensionInicioTransferida",
    u"Extension1InterExtensionFinTransferida",
    u"Extension2InterExtensionFinTransferida",
    u"Troncal1InterTroncalInicioTransferida",
    u"Troncal2InterTroncalInicioTransferida",
    u"Troncal1InterTroncalFinTransferida",
    u"Troncal2InterTroncalFinTransferida",
};

constexpr std::array<TextView, 22> kConstants = {
    u"IdentificadorHorarioMatutinoFecha",
    u"IdentificadorHorarioMatutinoDuracion",
    u"IdentEntrante",
    u"IdentEntranteAND",
    u"IdentEntranteOR",
    u"IdentSaliente",
    u"IdentSalienteAND",
    u"IdentSalienteOR",
    u"IdentInterExtension",
    u"IdentInterExtensionAND",
    u"IdentInterExtensionOR",
    u"IdentInterTroncal",
    u"IdentInterTroncalAND",
    u"IdentInterTroncalOR",
    u"IdentEntranteInicioTransferida",
    u"IdentEntranteFinTransferida",
    u"IdentSalienteInicioTransferida",
    u"IdentSalienteFinTransferida",
    u"IdentInterExtensionInicioTransferida",
    u"IdentInterExtensionFinTransferida",
    u"IdentInterTroncalInicioTransferida",
    u"IdentInterTroncalFinTransferida",
};

constexpr std::array<TextView, 3> kTypes = {u"numerico", u"constante", u"cadena"};

constexpr std::array<TextView, 5> kCases = {u"Estandar", u"SamsungNX_820", u"NortelMeridian01",
                                            u"NortelNorstar0x32SMDR6", u"RestaFechasDuracion"};

constexpr std::array<TextView, 4> kPairs = {u"DB9-DB9", u"DB9-DB25", u"DB25-DB9", u"DB25-DB25"};

template <class Code>
constexpr Code kFirst = static_cast<Code>(1);
template <>
constexpr emParamDato kFirst<emParamDato> = emParamFechaDia;
template <>
constexpr emParamDatoConstante kFirst<emParamDatoConstante> =
    emDatoCteIdentificadorHorarioMatutinoFecha;

template <class Code>
TextView Word(std::span<const TextView> words, Code code) {
  const auto place = std::int64_t{code} - kFirst<Code>;
  if (place < 0 || place >= static_cast<std::int64_t>(words.size())) return {};
  return words[static_cast<std::size_t>(place)];
}

template <class Code>
std::optional<Code> Find(std::span<const TextView> words, TextView name) {
  const auto found = std::find(words.begin(), words.end(), name);
  if (found == words.end()) return std::nullopt;
  return static_cast<Code>(found - words.begin() + kFirst<Code>);
}

}  // namespace

std::span<const TextView> ItemNames() {
  return kItems;
}
std::span<const TextView> ConstantNames() {
  return kConstants;
}
std::span<const TextView> TypeNames() {
  return kTypes;
}
std::span<const TextView> CaseNames() {
  return kCases;
}
std::span<const TextView> PairNames() {
  return kPairs;
}

TextView NameOf(emParamDato kind) {
  return Word(kItems, kind);
}
TextView NameOf(emParamDatoConstante kind) {
  return Word(kConstants, kind);
}
TextView NameOf(emTipoDato type) {
  return Word(kTypes, type);
}
TextView NameOf(emCasos code) {
  return Word(kCases, code);
}
TextView NameOf(emPuertoSerial pair) {
  return Word(kPairs, pair);
}

std::optional<emParamDato> FindItem(TextView name) {
  return Find<emParamDato>(kItems, name);
}
std::optional<emParamDatoConstante> FindConstant(TextView name) {
  return Find<emParamDatoConstante>(kConstants, name);
}
std::optional<emTipoDato> FindType(TextView name) {
  return Find<emTipoDato>(kTypes, name);
}
std::optional<emCasos> FindCase(TextView name) {
  return Find<emCasos>(kCases, name);
}
std::optional<emPuertoSerial> FindPair(TextView name) {
  return Find<emPuertoSerial>(kPairs, name);
}

}  // namespace conmuta::layouts
