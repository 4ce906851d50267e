#include "translate/clsLlamadaTRD.h"

#include <utility>

#include "platform/arithmetic.h"

namespace conmuta {
namespace {

// What `Fecha` answers without a year: 1 January 100.
constexpr DateValue kNoDate = -657434;

}  // namespace

bool clsLlamadaTRD::Moment::IsComplete() const {
  return Anio > 0 && Mes > 0 && Dia > 0 && Horas > 0 && Minutos > 0 && Segundos > 0;
}

std::optional<std::int64_t> clsLlamadaTRD::Moment::Seconds() const {
  const auto day = TryDayNumber(Anio, Mes, Dia);
  if (!day) return std::nullopt;
  return *day * kSecondsPerDay + SecondsOfDay(Horas, Minutos, Segundos);
}

DateValue clsLlamadaTRD::Fecha() const {
  if (Start().Anio < 1) return kNoDate;
  return static_cast<DateValue>(DayNumber(Start().Anio, Start().Mes, Start().Dia));
}

DateValue clsLlamadaTRD::Hora() const {
  if (Start().Horas < 1) return 0;
  return static_cast<DateValue>(SecondsOfDay(Start().Horas, Start().Minutos, Start().Segundos)) /
         static_cast<DateValue>(kSecondsPerDay);
}

std::int32_t clsLlamadaTRD::Duracion() const {
  return Narrow<std::int32_t>(
      SecondsOfDay(Duration().Horas, Duration().Minutos, Duration().Segundos));
}

emTiposLlamadas clsLlamadaTRD::TipoLlamada(emTiposLlamadas value) {
  const bool known = value >= emLlamadaNoAnalizada && value <= emLlamadaCodigoCuenta;
  return type_ = known ? value : emLlamadaIndefinida;
}

emAtributosLlamadas clsLlamadaTRD::Atributos(emAtributosLlamadas value) {
  const bool known = value >= emSinAtributo && value <= emAtributoFinTransferida;
  return attribute_ = known ? value : emSinAtributo;
}

LineError clsLlamadaTRD::TryAjustaDuracionPorRestaFechas() {
  if (!Start().IsComplete() || !Duration().IsComplete()) return LineError::kNone;
  const auto start = Start().Seconds();
  const auto second = Duration().Seconds();
  if (!start || !second) return LineError::kInvalidArgument;
  const std::int64_t difference = *start - *second;
  if (!std::in_range<std::int32_t>(difference)) return LineError::kOverflow;
  Moment& duration = moments_[1];
  duration.Anio = 0;
  duration.Mes = 0;
  duration.Dia = 0;
  if (!std::in_range<std::int16_t>(difference / 3600)) return LineError::kOverflow;
  duration.Horas = static_cast<std::int16_t>(difference / 3600);
  duration.Minutos = static_cast<std::int16_t>(difference % 3600 / 60);
  duration.Segundos = static_cast<std::int16_t>(difference % 60);
  return LineError::kNone;
}

NoCall clsLlamadaTRD::Lack() const {
  if (type_ == emLlamadaIndefinida) return NoCall::kUnknownType;
  if (Emisor().empty()) return NoCall::kNoCaller;
  if (Receptor().empty()) return NoCall::kNoCallee;
  const bool has_date = Start().Anio > 0 && Start().Mes > 0 && Start().Dia > 0;
  return has_date ? NoCall::kNone : NoCall::kNoDate;
}

void clsLlamadaTRD::CopiaLlamada(const clsLlamadaTRD& other) {
  const Clock* own_clock = clock_;
  *this = other;
  clock_ = own_clock;
}

}  // namespace conmuta
