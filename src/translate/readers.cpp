#include "translate/readers.h"

#include <algorithm>

#include "platform/number.h"

namespace conmuta::basConmuta {
namespace {

// The piece of the line at a slot's place, as it stands there.
TextView Cut(const DATO& slot, TextView line) {
  CheckedAdd<std::uint8_t>(slot.Pos, slot.Tam);
  const std::size_t begin = slot.Pos - 1u;
  if (begin >= line.size()) return {};
  return {line.data() + begin, std::min<std::size_t>(slot.Tam, line.size() - begin)};
}

TextView Read(const DATO& slot, TextView line, FieldBuffer& buffer) {
  const TextView text = Cut(slot, line);
  return slot.TipoDato == emValorNumerico ? DigitsOf(text, buffer) : text;
}

// The number at a slot's place, or what it is to be where there is none.
template <std::integral T>
T ReadNumber(const DATO& slot, TextView line, T otherwise) {
  const TextView text = Cut(slot, line);
  if (slot.TipoDato == emValorNumerico) {
    const std::int64_t number = ReadDigits(text);
    return number != kNoDigits ? Narrow<T>(number) : otherwise;
  }
  return ReadWholeNumberAs<T>(text).value_or(otherwise);
}

const DATO* SelectNumeric(clsCfgConmut& config, emParamDato kind) {
  const DATO* slot = config.SelectDATO(kind);
  return slot != nullptr && slot->TipoDato == emValorNumerico ? slot : nullptr;
}

std::int16_t CompleteYear(std::int16_t read, std::int16_t current) {
  // How much of the current year the digits replace.
  const int replaced = read < 10 ? 10 : read < 100 ? 100 : read < 1000 ? 1000 : 10000;
  if (read >= 10000) return read;
  if (read >= 80 && read <= 99) return static_cast<std::int16_t>(1900 + read);
  return Narrow<std::int16_t>(current - current % replaced + read);
}

std::int16_t ReadCalendarPart(clsCfgConmut& config, emParamDato kind, TextView line,
                              std::int16_t last, const Clock& clock, int CivilDate::*today) {
  const DATO* slot = SelectNumeric(config, kind);
  if (slot == nullptr) return 0;
  const std::int16_t part = ReadNumber(*slot, line, std::int16_t{0});
  return part >= 1 && part <= last ? part : static_cast<std::int16_t>(clock.Today().*today);
}

// The identifiers of a call type.
struct TypeIdentifiers {
  emTiposLlamadas type;
  emParamDatoConstante plain;
  emParamDatoConstante also;     // AND
  emParamDatoConstante instead;  // OR
  emParamDatoConstante transfer_start;
  emParamDatoConstante transfer_end;
};

constexpr std::array<TypeIdentifiers, 4> kTypeIdentifiers = {{
    {emLlamadaEntrante, emDatoCteIdentEntrante, emDatoCteIdentEntranteAND, emDatoCteIdentEntranteOR,
     emDatoCteIdentEntranteInicioTransferida, emDatoCteIdentEntranteFinTransferida},
    {emLlamadaSaliente, emDatoCteIdentSaliente, emDatoCteIdentSalienteAND, emDatoCteIdentSalienteOR,
     emDatoCteIdentSalienteInicioTransferida, emDatoCteIdentSalienteFinTransferida},
    {emLlamadaInterExtension, emDatoCteIdentInterExtension, emDatoCteIdentInterExtensionAND,
     emDatoCteIdentInterExtensionOR, emDatoCteIdentInterExtensionInicioTransferida,
     emDatoCteIdentInterExtensionFinTransferida},
    {emLlamadaInterTroncal, emDatoCteIdentInterTroncal, emDatoCteIdentInterTroncalAND,
     emDatoCteIdentInterTroncalOR, emDatoCteIdentInterTroncalInicioTransferida,
     emDatoCteIdentInterTroncalFinTransferida},
}};

bool Stands(const CTE& slot, TextView line) {
  const std::size_t end = CheckedAdd<std::uint8_t>(slot.Pos, slot.Tam) - 1u;
  return end <= line.size() && slot.Constante.Reads(line.substr(slot.Pos - 1u, slot.Tam));
}

bool Identifies(const TypeIdentifiers& row, clsCfgConmut& config, TextView line) {
  const CTE* plain = config.SelectCTE(row.plain);
  if (plain == nullptr) return false;
  if (Stands(*plain, line)) {
    const CTE* also = config.SelectCTE(row.also);
    return also == nullptr || Stands(*also, line);
  }
  return VerificaConstante(row.instead, config, line);
}

// The slots of number and parties, by call type and attribute.
struct PartySlots {
  emParamDato phone;
  emParamDato caller;
  emParamDato callee;
};

constexpr std::array<std::array<PartySlots, 3>, 4> kPartySlots = {{
    {{{emParamTelefonoEntrante, emParamTroncalEntrante, emParamExtensionEntrante},
      {emParamTelefonoEntranteInicioTransferida, emParamTroncalEntranteInicioTransferida,
       emParamExtensionEntranteInicioTransferida},
      {emParamTelefonoEntranteFinTransferida, emParamTroncalEntranteFinTransferida,
       emParamExtensionEntranteFinTransferida}}},
    {{{emParamTelefonoSaliente, emParamExtensionSaliente, emParamTroncalSaliente},
      {emParamTelefonoSalienteInicioTransferida, emParamExtensionSalienteInicioTransferida,
       emParamTroncalSalienteInicioTransferida},
      {emParamTelefonoSalienteFinTransferida, emParamExtensionSalienteFinTransferida,
       emParamTroncalSalienteFinTransferida}}},
    {{{emParamTelefonoInterExtension, emParamExtension1InterExtension,
       emParamExtension2InterExtension},
      {emParamTelefonoInterExtensionInicioTransferida,
       emParamExtension1InterExtensionInicioTransferida,
       emParamExtension2InterExtensionInicioTransferida},
      {emParamTelefonoInterExtensionFinTransferida, emParamExtension1InterExtensionFinTransferida,
       emParamExtension2InterExtensionFinTransferida}}},
    {{{emParamTelefonoInterTroncal, emParamTroncal1InterTroncal, emParamTroncal2InterTroncal},
      {emParamTelefonoInterTroncalInicioTransferida, emParamTroncal1InterTroncalInicioTransferida,
       emParamTroncal2InterTroncalInicioTransferida},
      {emParamTelefonoInterTroncalFinTransferida, emParamTroncal1InterTroncalFinTransferida,
       emParamTroncal2InterTroncalFinTransferida}}},
}};

const PartySlots* FindPartySlots(emTiposLlamadas type, emAtributosLlamadas attribute) {
  if (type < emLlamadaEntrante || type > emLlamadaInterTroncal) return nullptr;
  const auto& row = kPartySlots[static_cast<std::size_t>(type - emLlamadaEntrante)];
  switch (attribute) {
    case emSinAtributo:
      return &row[0];
    case emAtributoIniTransferida:
      return &row[1];
    case emAtributoFinTransferida:
      return &row[2];
    default:
      return nullptr;
  }
}

TextView ReadParty(emParamDato PartySlots::*slot, clsCfgConmut& config, emTiposLlamadas type,
                   emAtributosLlamadas attribute, TextView line, FieldBuffer& buffer) {
  const PartySlots* slots = FindPartySlots(type, attribute);
  return slots != nullptr ? LeeDatoTexto(slots->*slot, config, line, buffer) : TextView();
}

}  // namespace

TextView DigitsOf(TextView text, FieldBuffer& buffer) {
  std::size_t count = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c)) continue;
    if (count == buffer.size()) break;
    buffer[count++] = c;
  }
  return {buffer.data(), count};
}

TextView LeeDatoTexto(emParamDato kind, clsCfgConmut& config, TextView line, FieldBuffer& buffer) {
  const DATO* slot = config.SelectDATO(kind);
  return slot != nullptr ? Read(*slot, line, buffer) : TextView();
}

bool VerificaConstante(emParamDatoConstante kind, clsCfgConmut& config, TextView line) {
  const CTE* slot = config.SelectCTE(kind);
  return slot != nullptr && Stands(*slot, line);
}

std::int16_t LeeAnio(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  const DATO* slot = SelectNumeric(config, kind);
  if (slot == nullptr) return 0;
  const auto read = ReadNumber(*slot, line, std::int16_t{-1});
  if (read < 0) return 0;
  const auto current = static_cast<std::int16_t>(clock.Today().year);
  return std::max(current, CompleteYear(read, current));
}

std::int16_t LeeMes(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  return ReadCalendarPart(config, kind, line, 12, clock, &CivilDate::month);
}

std::int16_t LeeDia(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  return ReadCalendarPart(config, kind, line, 31, clock, &CivilDate::day);
}

std::int32_t LeeHoras(clsCfgConmut& config, emParamDato kind, TextView line) {
  const DATO* slot = config.SelectDATO(kind);
  if (slot == nullptr) return 0;
  return std::max(0, ReadNumber(*slot, line, std::int32_t{0}));
}

std::int32_t LeeMinutos(clsCfgConmut& config, emParamDato kind, TextView line) {
  return std::min(59, LeeHoras(config, kind, line));
}

std::int32_t LeeSegundos(clsCfgConmut& config, emParamDato kind, TextView line) {
  return LeeMinutos(config, kind, line);
}

emTiposLlamadas ObtTipoLlamada(clsCfgConmut& config, TextView line) {
  if (!HasDigit(line)) return emLlamadaIndefinida;
  for (const TypeIdentifiers& row : kTypeIdentifiers) {
    if (Identifies(row, config, line)) return row.type;
  }
  return emLlamadaIndefinida;
}

emAtributosLlamadas ObtAtributos(clsCfgConmut& config, emTiposLlamadas type, TextView line) {
  const auto row = std::find_if(kTypeIdentifiers.begin(), kTypeIdentifiers.end(),
                                [&](const TypeIdentifiers& r) { return r.type == type; });
  if (row == kTypeIdentifiers.end()) return emSinAtributo;
  if (VerificaConstante(row->transfer_start, config, line)) return emAtributoIniTransferida;
  if (VerificaConstante(row->transfer_end, config, line)) return emAtributoFinTransferida;
  return emSinAtributo;
}

TextView ObtTelefono(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer) {
  return ReadParty(&PartySlots::phone, config, type, attribute, line, buffer);
}

TextView ObtEmisor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                   TextView line, FieldBuffer& buffer) {
  return ReadParty(&PartySlots::caller, config, type, attribute, line, buffer);
}

TextView ObtReceptor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer) {
  return ReadParty(&PartySlots::callee, config, type, attribute, line, buffer);
}

}  // namespace conmuta::basConmuta
