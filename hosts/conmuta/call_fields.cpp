#include "conmuta/call_fields.h"

#include <array>
#include <string>

#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "layouts/numbers.h"
#include "layouts/outcome_words.h"
#include "platform/calendar.h"

namespace conmuta::host {
namespace {

// The words, by code.
template <class Code, std::size_t kCount>
std::array<std::string, 32> ByCode(const layouts::Word<Code> (&words)[kCount]) {
  std::array<std::string, 32> by_code;
  for (const auto& row : words) by_code.at(static_cast<std::size_t>(row.code)) = Utf8(row.word);
  return by_code;
}

}  // namespace

std::string_view TypeWord(emTiposLlamadas type) {
  static const auto words = ByCode(layouts::kTypeWords);
  return words[static_cast<std::size_t>(type)];
}

std::string_view TransferWord(emAtributosLlamadas attribute) {
  static const auto words = ByCode(layouts::kTransferWords);
  if (attribute == emSinAtributo) return {};
  return words[static_cast<std::size_t>(attribute)];
}

std::string_view ReasonWord(const Verdict& verdict) {
  static const auto reasons = ByCode(layouts::kReasonWords);
  static const auto errors = ByCode(layouts::kErrorWords);
  return verdict.error != LineError::kNone ? errors[static_cast<std::size_t>(verdict.error)]
                                           : reasons[static_cast<std::size_t>(verdict.reason)];
}

Moment MomentOf(const clsLlamadaTRD& call) {
  return {call.Anio(emParamFecha),  call.Mes(emParamFecha),     call.Dia(emParamFecha),
          call.Horas(emParamFecha), call.Minutos(emParamFecha), call.Segundos(emParamFecha)};
}

namespace {

std::optional<Moment> BeginningOf(const clsLlamadaTRD& call, const CallTimes& times,
                                  layouts::Sheet::TimeOf time_of) {
  const Moment& printed = times.printed;
  if (time_of == layouts::Sheet::TimeOf::kUnknown || printed.hours > 23) return std::nullopt;
  if (!layouts::IsInCalendar({printed.year, printed.month, printed.day})) return std::nullopt;
  if (time_of == layouts::Sheet::TimeOf::kStart) return printed;
  if (!times.duration) return std::nullopt;

  std::int64_t before = *times.duration;
  if (call.TipoLlamada() == emLlamadaEntrante) before += call.Ring();
  const std::int64_t end = SecondsOfDay(printed.hours, printed.minutes, printed.seconds);
  std::int64_t begin = end - before;
  CivilDate date{printed.year, printed.month, printed.day};
  if (begin < 0) [[unlikely]] {  // on a day before
    const std::int64_t days = (-begin + kSecondsPerDay - 1) / kSecondsPerDay;
    begin += days * kSecondsPerDay;
    date = DateOfDayNumber(DayNumber(date.year, date.month, date.day) - days);
  }
  const auto rest = static_cast<int>(begin);
  return Moment{date.year, date.month, date.day, rest / 3600, rest / 60 % 60, rest % 60};
}

}  // namespace

CallTimes TimesOf(const clsLlamadaTRD& call, layouts::Sheet::TimeOf time_of) {
  CallTimes times{MomentOf(call), layouts::KnownDuration(call), std::nullopt};
  times.beginning = BeginningOf(call, times, time_of);
  return times;
}

}  // namespace conmuta::host
