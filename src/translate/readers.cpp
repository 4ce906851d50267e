#include "translate/readers.h"

#include "translate/line_reader.h"

namespace conmuta::basConmuta {
namespace {

// For what needs no date.
class NoClock final : public Clock {
 public:
  CivilDate Today() const override { return {}; }
};

// Reads one thing by the rules of the reader. `read` answers like its members.
template <class Read>
void ReadOnce(clsCfgConmut& config, TextView line, Read read, const Clock& clock = NoClock()) {
  const LinePlan plan(config);
  const LineText text(line);
  const HeldClock today(clock);
  Unwatched nobody;
  FullYears years;
  LineReader<Unwatched> reader(plan, text, today, years, {config.DATOActivo(), config.CTEActivo()},
                               nobody);
  const bool could = read(reader);
  config.DATOActivo(reader.active().item);
  config.CTEActivo(reader.active().constant);
  if (!could) Raise(reader.error());
}

// The same of one item. Any code; one that is not a kind has no slot.
template <class Read>
void ReadItem(clsCfgConmut& config, emParamDato kind, TextView line, Read read,
              const Clock& clock = NoClock()) {
  if (!IsKind<DATO>(kind)) return config.DATOActivo(kind);
  ReadOnce(config, line, read, clock);
}

std::int32_t ReadAmount(clsCfgConmut& config, emParamDato kind, TextView line, std::int32_t most) {
  std::int32_t amount = 0;
  ReadItem(config, kind, line, [&](auto& reader) { return reader.Amount(kind, most, amount); });
  return amount;
}

// Of the slot that belongs to a call's type and attribute; empty where none does.
TextView ReadCallSlot(emParamDato CallSlots::*slot, clsCfgConmut& config, emTiposLlamadas type,
                      emAtributosLlamadas attribute, TextView line, FieldBuffer& buffer) {
  const CallSlots* slots = FindCallSlots(type, attribute);
  return slots != nullptr ? LeeDatoTexto(slots->*slot, config, line, buffer) : TextView();
}

// Where what was read shall stand: the reader's own copy of the line does not outlive it.
class Shown {
 public:
  Shown(TextView line, TextView copy, FieldBuffer& buffer)
      : line_(line), copy_(copy), buffer_(buffer) {}

  TextView operator()(TextView found) const {
    if (found.empty()) return {};
    return line_.substr(static_cast<std::size_t>(found.data() - copy_.data()), found.size());
  }
  template <class Digits>
  TextView operator()(Digits digits) const {
    return buffer_ = digits;
  }

 private:
  TextView line_;
  TextView copy_;
  FieldBuffer& buffer_;
};

}  // namespace

TextView LeeDatoTexto(emParamDato kind, clsCfgConmut& config, TextView line, FieldBuffer& buffer) {
  TextView text;
  ReadItem(config, kind, line, [&](auto& reader) {
    const Shown shown(line, reader.line(), buffer);
    return reader.ReadText(kind, [&](auto found) { return text = shown(found); });
  });
  return text;
}

bool VerificaConstante(emParamDatoConstante kind, clsCfgConmut& config, TextView line) {
  bool stands = false;
  if (!IsKind<CTE>(kind)) return config.CTEActivo(kind), false;
  ReadOnce(config, line, [&](auto& reader) { return reader.Stands(kind, stands); });
  return stands;
}

std::int16_t LeeAnio(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  std::int16_t year = 0;
  ReadItem(
      config, kind, line, [&](auto& reader) { return reader.Year(kind, year); }, clock);
  return year;
}

std::int16_t LeeMes(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  std::int16_t month = 0;
  ReadItem(
      config, kind, line, [&](auto& reader) { return reader.Month(kind, month); }, clock);
  return month;
}

std::int16_t LeeDia(clsCfgConmut& config, emParamDato kind, TextView line, const Clock& clock) {
  std::int16_t day = 0;
  ReadItem(
      config, kind, line, [&](auto& reader) { return reader.Day(kind, day); }, clock);
  return day;
}

std::int32_t LeeHoras(clsCfgConmut& config, emParamDato kind, TextView line) {
  return ReadAmount(config, kind, line, INT32_MAX);
}

std::int32_t LeeMinutos(clsCfgConmut& config, emParamDato kind, TextView line) {
  return ReadAmount(config, kind, line, 59);
}

std::int32_t LeeSegundos(clsCfgConmut& config, emParamDato kind, TextView line) {
  return ReadAmount(config, kind, line, 59);
}

emTiposLlamadas ObtTipoLlamada(clsCfgConmut& config, TextView line) {
  emTiposLlamadas type = emLlamadaIndefinida;
  ReadOnce(config, line, [&](auto& reader) { return reader.CallType(type); });
  return type;
}

emAtributosLlamadas ObtAtributos(clsCfgConmut& config, emTiposLlamadas type, TextView line) {
  emAtributosLlamadas attribute = emSinAtributo;
  ReadOnce(config, line, [&](auto& reader) { return reader.Attribute(type, attribute); });
  return attribute;
}

TextView ObtTelefono(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer) {
  return ReadCallSlot(&CallSlots::phone, config, type, attribute, line, buffer);
}

TextView ObtEmisor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                   TextView line, FieldBuffer& buffer) {
  return ReadCallSlot(&CallSlots::caller, config, type, attribute, line, buffer);
}

TextView ObtReceptor(clsCfgConmut& config, emTiposLlamadas type, emAtributosLlamadas attribute,
                     TextView line, FieldBuffer& buffer) {
  return ReadCallSlot(&CallSlots::callee, config, type, attribute, line, buffer);
}

}  // namespace conmuta::basConmuta
