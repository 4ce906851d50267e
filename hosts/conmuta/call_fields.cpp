#include "conmuta/call_fields.h"

#include <array>
#include <string>

#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "layouts/outcome_words.h"

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

CallTimes TimesOf(const clsLlamadaTRD& call, layouts::Sheet::TimeOf time_of) {
  CallTimes times{MomentOf(call), layouts::KnownDuration(call), std::nullopt};
  times.beginning = translation::BeginningOf(
      {times.printed, times.duration, call.Ring(), call.TipoLlamada()}, time_of);
  return times;
}

}  // namespace conmuta::host
