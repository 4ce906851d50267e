#include "translate/clsLlamadaTRD.h"

#include "platform/arithmetic.h"

namespace conmuta {
namespace {

// What `Fecha` answers without a year: 1 January 100.
constexpr DateValue kNoDate = -657434;

constexpr std::int16_t InRangeOrZero(std::int16_t value, std::int16_t first, std::int16_t last) {
  return value < first || value > last ? std::int16_t{0} : value;
}

constexpr std::int16_t NotNegative(std::int16_t value) {
  return value < 0 ? std::int16_t{0} : value;
}

}  // namespace

bool clsLlamadaTRD::Moment::IsComplete() const {
  return Anio > 0 && Mes > 0 && Dia > 0 && Horas > 0 && Minutos > 0 && Segundos > 0;
}

std::int64_t clsLlamadaTRD::Moment::Seconds() const {
  return DayNumber(Anio, Mes, Dia) * kSecondsPerDay + SecondsOfDay(Horas, Minutos, Segundos);
}

clsLlamadaTRD::Moment* clsLlamadaTRD::Find(emParamTipoFecha emParam) {
  switch (emParam) {
    case emParamFecha:
      return &moments_[0];
    case emParamDuracion:
      return &moments_[1];
    default:
      return nullptr;
  }
}

const clsLlamadaTRD::Moment* clsLlamadaTRD::Find(emParamTipoFecha emParam) const {
  return const_cast<clsLlamadaTRD*>(this)->Find(emParam);
}

std::int16_t clsLlamadaTRD::Read(emParamTipoFecha emParam, std::int16_t Moment::*part) const {
  const Moment* moment = Find(emParam);
  return moment != nullptr ? moment->*part : std::int16_t{0};
}

void clsLlamadaTRD::Inicializa() {
  *this = clsLlamadaTRD(*clock_);
}

void clsLlamadaTRD::Anio(emParamTipoFecha emParam, std::int16_t value, const Clock& clock) {
  Moment* moment = Find(emParam);
  if (moment == nullptr) return;
  value = NotNegative(value);
  if (value == 0 && emParam == emParamFecha) {
    value = static_cast<std::int16_t>(clock.Today().year);
  }
  moment->Anio = value;
}

void clsLlamadaTRD::Mes(emParamTipoFecha emParam, std::int16_t value, const Clock& clock) {
  Moment* moment = Find(emParam);
  if (moment == nullptr) return;
  value = InRangeOrZero(value, 1, 12);
  if (value == 0 && emParam == emParamFecha) {
    value = static_cast<std::int16_t>(clock.Today().month);
  }
  moment->Mes = value;
}

void clsLlamadaTRD::Dia(emParamTipoFecha emParam, std::int16_t value, const Clock& clock) {
  Moment* moment = Find(emParam);
  if (moment == nullptr) return;
  value = InRangeOrZero(value, 1, 31);
  if (value == 0 && emParam == emParamFecha) {
    value = static_cast<std::int16_t>(clock.Today().day);
  }
  moment->Dia = value;
}

void clsLlamadaTRD::Horas(emParamTipoFecha emParam, std::int16_t value) {
  value = NotNegative(value);
  if (Moment* moment = Find(emParam)) moment->Horas = value;
  if (emParam == emParamRING) {
    // The product is 16-bit on purpose: hosts know a ring of ten hours as an overflow.
    ring_ = CheckedAdd<std::int32_t>(ring_, CheckedMultiply<std::int16_t>(value, 3600));
  }
}

void clsLlamadaTRD::Minutos(emParamTipoFecha emParam, std::int16_t value) {
  value = InRangeOrZero(value, 1, 59);
  if (Moment* moment = Find(emParam)) moment->Minutos = value;
  if (emParam == emParamRING) ring_ = CheckedAdd<std::int32_t>(ring_, value * 60);
}

void clsLlamadaTRD::Segundos(emParamTipoFecha emParam, std::int16_t value) {
  value = InRangeOrZero(value, 1, 59);
  if (Moment* moment = Find(emParam)) moment->Segundos = value;
  if (emParam == emParamRING) ring_ = CheckedAdd<std::int32_t>(ring_, value);
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

void clsLlamadaTRD::AjustarHoraVespertina12Hrs24Hrs(emParamTipoFecha emParam) {
  Moment* moment = Find(emParam);
  if (moment == nullptr) return;
  if (moment->Horas >= 1 && moment->Horas <= 11) {
    moment->Horas = static_cast<std::int16_t>(moment->Horas + 12);
  }
}

void clsLlamadaTRD::AjustaDuracionPorRestaFechas() {
  if (!Start().IsComplete() || !Duration().IsComplete()) return;
  const auto difference = Narrow<std::int32_t>(Start().Seconds() - Duration().Seconds());
  Moment& duration = moments_[1];
  duration.Anio = 0;
  duration.Mes = 0;
  duration.Dia = 0;
  duration.Horas = Narrow<std::int16_t>(difference / 3600);
  const std::int32_t rest = difference % 3600;
  duration.Minutos = static_cast<std::int16_t>(rest / 60);
  duration.Segundos = static_cast<std::int16_t>(rest % 60);
}

bool clsLlamadaTRD::EsValido() const {
  return type_ != emLlamadaIndefinida && !Emisor().empty() && !Receptor().empty() &&
         Start().Anio > 0 && Start().Mes > 0 && Start().Dia > 0;
}

void clsLlamadaTRD::CopiaLlamada(const clsLlamadaTRD& other) {
  const Clock* own_clock = clock_;
  *this = other;
  clock_ = own_clock;
}

}  // namespace conmuta
