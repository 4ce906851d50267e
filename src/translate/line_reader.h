// The road from a line to values: every item and every constant that a translation uses is read
// here, by the plan of the configuration.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/clock.h"
#include "platform/number.h"
#include "translate/call_slots.h"
#include "translate/clsLlamadaTRD.h"
#include "translate/full_years.h"
#include "translate/line_plan.h"
#include "translate/watch.h"

namespace conmuta {

// The kinds that were looked at last; hosts see them as DATOActivo and CTEActivo.
struct ActiveKinds {
  emParamDato item = emNoParamDato;
  emParamDatoConstante constant = emNoParamDatoConstante;
};

// What a number reads as when there is none; no item's number is negative otherwise.
inline constexpr std::int32_t kNoNumber = kNoDigits;

// The number of an item with more digits, or of another type; a negative one reads as kNoNumber.
// kTooLarge for one above `most` or outside 32 bits, and for a place beyond reach.
inline constexpr std::int32_t kTooLarge = kNoNumber - 1;
[[nodiscard, gnu::noinline]] std::int32_t ReadOtherNumber(const PlannedItem& item,
                                                          const LineText& line, std::int32_t most);

// Each member that reads answers whether it could; the error is then in error(), and the caller
// stops there: what was stored before stays. A missing slot or a short line is no error.
// Watch is Unwatched or Watched.
template <class Watch>
class LineReader {
 public:
  LineReader(const LinePlan& plan, const LineText& line, const HeldClock& clock, FullYears& years,
             ActiveKinds active, Watch& watch)
      : plan_(plan),
        line_(line),
        columns_(line.From(0)),
        clock_(clock),
        years_(years),
        active_(active),
        watch_(watch) {}
  LineReader(const LineReader&) = default;

  // Takes up where another reader of the same line has come to.
  void GoOnAfter(const LineReader& other) {
    active_ = other.active_;
    error_ = other.error_;
  }

  TextView line() const { return line_.View(); }
  LineError error() const { return error_; }
  ActiveKinds active() const { return active_; }
  Watch& watch() { return watch_; }

  // Takes up an error that arose elsewhere; whether there was none.
  bool Check(LineError error) {
    if (error == LineError::kNone) [[likely]]
      return true;
    error_ = error;
    return false;
  }

  // Single items.

  // 0 unless the slot is numeric and holds digits. Up to four digits are completed with those of
  // the current year, 80 to 99 mean 1980 to 1999; a year before the current one becomes the
  // current one: hosts rely on it.
  [[nodiscard]] bool Year(emParamDato kind, std::int16_t& value);

  // 0 unless the slot is numeric; today's where the line holds no number of 1 to 12, or 1 to 31.
  [[nodiscard]] bool Month(emParamDato kind, std::int16_t& value) {
    return CalendarPart(kind, 12, &CivilDate::month, value);
  }
  [[nodiscard]] bool Day(emParamDato kind, std::int16_t& value) {
    return CalendarPart(kind, 31, &CivilDate::day, value);
  }

  // 0 for what is no number or is negative; cut to `most`.
  [[nodiscard]] bool Amount(emParamDato kind, std::int32_t most, std::int32_t& value);

  // Gives `store` the text at the slot's place: a TextView, or for a numeric slot FieldDigits or
  // DigitsOf. It answers what it made of it.
  template <class Store>
  [[nodiscard]] bool ReadText(emParamDato kind, Store store);

  // Whether there is a constant of that kind.
  bool IsDefined(emParamDatoConstante kind) {
    active_.constant = kind;
    const bool defined = plan_[kind].IsDefined();
    if (!defined) TellLook(kind, plan_[kind], false);
    return defined;
  }

  // Whether the constant stands at its place: exact, letter case included.
  [[nodiscard]] bool Stands(emParamDatoConstante kind, bool& stands);

  // The first of incoming, outgoing, inter-extension and inter-trunk whose identifiers match;
  // undefined when none does, or the line has no digit.
  [[nodiscard]] bool CallType(emTiposLlamadas& type);

  // Start or end of a transfer, or neither, by the identifiers of the call type.
  [[nodiscard]] bool Attribute(emTiposLlamadas type, emAtributosLlamadas& attribute);

  // Groups of items, into a call.

  // Year, month, day, hours, minutes and seconds, in this order.
  [[nodiscard]] bool ReadStart(clsLlamadaTRD& call) {
    return ReadDate(call, emParamFecha, emParamFechaAnio, emParamFechaMes, emParamFechaDia) &&
           ReadTime(call, emParamFecha, emParamFechaHoras, emParamFechaMinutos,
                    emParamFechaSegundos);
  }
  [[nodiscard]] bool ReadDuration(clsLlamadaTRD& call) {
    return ReadDate(call, emParamDuracion, emParamDuracionAnio, emParamDuracionMes,
                    emParamDuracionDia) &&
           ReadDurationTime(call);
  }

  // Hours, minutes and seconds only.
  [[nodiscard]] bool ReadDurationTime(clsLlamadaTRD& call) {
    return ReadTime(call, emParamDuracion, emParamDuracionHoras, emParamDuracionMinutos,
                    emParamDuracionSegundos);
  }
  [[nodiscard]] bool ReadRing(clsLlamadaTRD& call) {  // adds to what is there
    return ReadTime(call, emParamRING, emParamRingHoras, emParamRingMinutos, emParamRingSegundos);
  }

  // Number, caller and callee, as the call's own type and attribute tell.
  [[nodiscard]] bool ReadPhoneAndParties(clsLlamadaTRD& call) {
    const CallSlots* slots = FindCallSlots(call.TipoLlamada(), call.Atributos());
    return ReadPhone(call, slots) && ReadParties(call, slots);
  }
  [[nodiscard]] bool ReadParties(clsLlamadaTRD& call) {
    return ReadParties(call, call.Atributos());
  }
  // The same with an attribute that is not the call's.
  [[nodiscard]] bool ReadParties(clsLlamadaTRD& call, emAtributosLlamadas attribute) {
    return ReadParties(call, FindCallSlots(call.TipoLlamada(), attribute));
  }

  [[nodiscard]] bool ReadAccountCode(clsLlamadaTRD& call) {
    return ReadText(emParamCodigoCuenta,
                    [&](auto text) { return call.CodigoCuenta(text), call.CodigoCuenta(); });
  }

 private:
  const PlannedItem& Select(emParamDato kind) {
    active_.item = kind;
    return plan_[kind];
  }

  // kNoNumber where there is none.
  bool Number(const PlannedItem& item, std::int32_t most, std::int32_t& number) {
    if (item.form == PlannedItem::Form::kTwoDigits) [[likely]] {
      number = ReadTwoDigits(columns_ + item.begin);
      return true;
    }
    if (item.form == PlannedItem::Form::kOneDigit) {
      // No branch: it is empty now and then.
      const char16_t column = columns_[item.begin];
      number = (column - u'0') | -std::int32_t{!IsDigit(column)};
      return true;
    }
    if (item.form == PlannedItem::Form::kFewDigits) {
      number = ReadFewDigits({columns_ + item.begin, item.size});
      return true;
    }
    number = kNoNumber;
    if (!item.IsDefined()) return true;
    number = ReadOtherNumber(item, line_, most);
    return number != kTooLarge || Check(LineError::kOverflow);
  }

  bool CalendarPart(emParamDato kind, std::int32_t last, int CivilDate::*today,
                    std::int16_t& value);
  bool ReadDate(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato year, emParamDato month,
                emParamDato day);
  bool ReadTime(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato hours, emParamDato minutes,
                emParamDato seconds);
  bool ReadPhone(clsLlamadaTRD& call, const CallSlots* slots);
  bool ReadParties(clsLlamadaTRD& call, const CallSlots* slots);
  bool Identifies(const TypeIdentifiers& row, bool& identified);

  ItemRead About(emParamDato kind, const PlannedItem& item) const;
  void TellNumber(emParamDato kind, const PlannedItem& item, std::int32_t number);
  void TellText(emParamDato kind, const PlannedItem& item, TextView text);
  void TellLook(emParamDatoConstante kind, const PlannedConstant& constant, bool stands);

  const LinePlan& plan_;
  const LineText& line_;
  const char16_t* const columns_;  // of the line
  const HeldClock& clock_;
  FullYears& years_;
  ActiveKinds active_;
  LineError error_ = LineError::kNone;
  Watch& watch_;
};

}  // namespace conmuta

#include "translate/line_reader_rules.h"
