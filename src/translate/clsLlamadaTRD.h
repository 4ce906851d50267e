// One translated call: when it began, how long it lasted and rang, who spoke with whom.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/calendar.h"
#include "platform/clock.h"
#include "translate/bounded_text.h"
#include "translate/enums.h"
#include "translate/line_error.h"
#include "translate/verdict.h"

namespace conmuta {

// Setters do not fail on bad values, they replace them; only arithmetic that does not fit its
// width raises (OverflowError).
class clsLlamadaTRD {
 public:
  explicit clsLlamadaTRD(const Clock& clock) : clock_(&clock) {}

  // Everything 0 or empty, TipoLlamada undefined.
  void Inicializa() {
    moments_ = {};
    ring_ = 0;
    type_ = emLlamadaIndefinida;
    attribute_ = emSinAtributo;
    phone_.Clear();
    transferred_to_.Clear();
    caller_.Clear();
    callee_.Clear();
    account_.Clear();
  }

  // The parts of the start (emParamFecha) and of the duration (emParamDuracion). A value out of
  // range is stored as 0, and for the start a year, month or day of 0 becomes today's. Hours,
  // minutes and seconds of emParamRING add to Ring; ten hours and more raise OverflowError. Any
  // other index reads 0 and stores nothing.
  std::int16_t Anio(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Anio); }
  std::int16_t Mes(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Mes); }
  std::int16_t Dia(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Dia); }
  std::int16_t Horas(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Horas); }
  std::int16_t Minutos(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Minutos); }
  std::int16_t Segundos(emParamTipoFecha emParam) const { return Read(emParam, &Moment::Segundos); }
  void Anio(emParamTipoFecha emParam, std::int16_t value) { Anio(emParam, value, *clock_); }
  void Mes(emParamTipoFecha emParam, std::int16_t value) { Mes(emParam, value, *clock_); }
  void Dia(emParamTipoFecha emParam, std::int16_t value) { Dia(emParam, value, *clock_); }
  void Horas(emParamTipoFecha emParam, std::int16_t value) { Raise(TryHoras(emParam, value)); }
  void Minutos(emParamTipoFecha emParam, std::int16_t value) { Raise(TryMinutos(emParam, value)); }
  void Segundos(emParamTipoFecha emParam, std::int16_t value) {
    Raise(TrySegundos(emParam, value));
  }

  // The same, dated by another clock.
  template <class AnyClock>
  void Anio(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock);
  template <class AnyClock>
  void Mes(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock);
  template <class AnyClock>
  void Dia(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock);

  // The same for who wants the error as a value. Nothing is stored then.
  [[nodiscard]] LineError TryHoras(emParamTipoFecha emParam, std::int16_t value);
  [[nodiscard]] LineError TryMinutos(emParamTipoFecha emParam, std::int16_t value);
  [[nodiscard]] LineError TrySegundos(emParamTipoFecha emParam, std::int16_t value);

  // Date of the start, parts rolled over; 1 January 100 when there is no year.
  // InvalidArgumentError for a year above 9999.
  DateValue Fecha() const;

  // Time of the start, parts rolled over. Hosts rely on 0 for every call in the hour after
  // midnight.
  DateValue Hora() const;

  std::int32_t Duracion() const;  // seconds

  std::int32_t Ring() const { return ring_; }  // seconds
  void Ring(std::int32_t value) { ring_ = value < 0 ? 0 : value; }

  // A code out of range is stored as undefined, or as no attribute. Each gives what it stored.
  emTiposLlamadas TipoLlamada() const { return type_; }
  emTiposLlamadas TipoLlamada(emTiposLlamadas value);
  emAtributosLlamadas Atributos() const { return attribute_; }
  emAtributosLlamadas Atributos(emAtributosLlamadas value);

  // Cut to 30 (numbers, account code) or 10 (parties) characters; NULs are dropped. Those that
  // stand in lines take digits as well (bounded_text.h). What is read lives until the record
  // changes; up to so many characters may be read from where it begins, whatever its size.
  static constexpr std::size_t kNumberRoom = BoundedText<30>::kRoom;
  static constexpr std::size_t kPartyRoom = BoundedText<10>::kRoom;
  TextView Telefono() const { return phone_; }
  template <class Characters>
  void Telefono(const Characters& value) {
    phone_ = value;
  }
  TextView ExtensionTransferida() const { return transferred_to_; }
  void ExtensionTransferida(TextView value) { transferred_to_ = value; }
  TextView Emisor() const { return caller_; }
  template <class Characters>
  void Emisor(const Characters& value) {
    caller_ = value;
  }
  TextView Receptor() const { return callee_; }
  template <class Characters>
  void Receptor(const Characters& value) {
    callee_ = value;
  }
  TextView CodigoCuenta() const { return account_; }
  template <class Characters>
  void CodigoCuenta(const Characters& value) {
    account_ = value;
  }

  // An afternoon hour of a 12-hour clock in 24-hour form: 1 to 11 gain 12.
  void AjustarHoraVespertina12Hrs24Hrs(emParamTipoFecha emParam) {
    AdjustTwelveHourClock(emParam, true);
  }
  // The same for an hour that may be one of the morning, which stays: every other line's does, and
  // there is no branch on it.
  void AdjustTwelveHourClock(emParamTipoFecha emParam, bool is_afternoon) {
    Moment* moment = Find(emParam);
    if (moment == nullptr) return;
    const bool gains = is_afternoon & (moment->Horas >= 1) & (moment->Horas <= 11);
    moment->Horas = static_cast<std::int16_t>(moment->Horas + 12 * std::int16_t{gains});
  }

  // Takes the duration's parts as a second moment and replaces them by the time from it to the
  // start, negative when it is the later one. Hosts rely on nothing happening when any of the
  // twelve parts is 0: that stands for one that was not read. InvalidArgumentError for a year above
  // 9999; OverflowError, with the second moment's date gone, for more than 32767 hours.
  void AjustaDuracionPorRestaFechas() { Raise(TryAjustaDuracionPorRestaFechas()); }
  [[nodiscard]] LineError TryAjustaDuracionPorRestaFechas();

  // Whether the call can be billed: type defined, both parties and the date known.
  bool EsValido() const { return Lack() == NoCall::kNone; }
  // The first of these that it lacks; kNone when it can be billed.
  NoCall Lack() const;

  void CopiaLlamada(const clsLlamadaTRD& other);

 private:
  struct Moment {
    std::int16_t Dia = 0;
    std::int16_t Mes = 0;
    std::int16_t Anio = 0;
    std::int16_t Horas = 0;
    std::int16_t Minutos = 0;
    std::int16_t Segundos = 0;

    bool IsComplete() const;
    // Since day 0; nothing for a year beyond the calendar.
    std::optional<std::int64_t> Seconds() const;
  };

  // The moment that an index addresses, or null.
  Moment* Find(emParamTipoFecha emParam) {
    return emParam == emParamFecha      ? &moments_[0]
           : emParam == emParamDuracion ? &moments_[1]
                                        : nullptr;
  }
  const Moment* Find(emParamTipoFecha emParam) const {
    return const_cast<clsLlamadaTRD*>(this)->Find(emParam);
  }
  std::int16_t Read(emParamTipoFecha emParam, std::int16_t Moment::*part) const {
    const Moment* moment = Find(emParam);
    return moment != nullptr ? moment->*part : std::int16_t{0};
  }

  // Stores a part of a moment: 0 for a value out of range; for the start today's instead of 0.
  template <class Today>
  void WriteDatePart(emParamTipoFecha emParam, std::int16_t Moment::*part, std::int16_t value,
                     std::int16_t last, Today today);
  // Likewise; for the ring adds the seconds that the value stands for.
  LineError WriteTimePart(emParamTipoFecha emParam, std::int16_t Moment::*part, std::int16_t value,
                          std::int16_t last, std::int16_t seconds);

  const Moment& Start() const { return moments_[0]; }
  const Moment& Duration() const { return moments_[1]; }

  const Clock* clock_;
  std::array<Moment, 2> moments_;
  std::int32_t ring_ = 0;
  emTiposLlamadas type_ = emLlamadaIndefinida;
  emAtributosLlamadas attribute_ = emSinAtributo;
  BoundedText<30> phone_;
  BoundedText<10> transferred_to_;
  BoundedText<10> caller_;
  BoundedText<10> callee_;
  BoundedText<30> account_;
};

template <class Today>
void clsLlamadaTRD::WriteDatePart(emParamTipoFecha emParam, std::int16_t Moment::*part,
                                  std::int16_t value, std::int16_t last, Today today) {
  Moment* moment = Find(emParam);
  if (moment == nullptr) return;
  if (value < 1 || value > last) value = 0;
  if (value == 0 && emParam == emParamFecha) value = static_cast<std::int16_t>(today());
  moment->*part = value;
}

template <class AnyClock>
void clsLlamadaTRD::Anio(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock) {
  WriteDatePart(emParam, &Moment::Anio, value, std::numeric_limits<std::int16_t>::max(),
                [&] { return clock.Today().year; });
}

template <class AnyClock>
void clsLlamadaTRD::Mes(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock) {
  WriteDatePart(emParam, &Moment::Mes, value, 12, [&] { return clock.Today().month; });
}

template <class AnyClock>
void clsLlamadaTRD::Dia(emParamTipoFecha emParam, std::int16_t value, const AnyClock& clock) {
  WriteDatePart(emParam, &Moment::Dia, value, 31, [&] { return clock.Today().day; });
}

inline LineError clsLlamadaTRD::WriteTimePart(emParamTipoFecha emParam, std::int16_t Moment::*part,
                                              std::int16_t value, std::int16_t last,
                                              std::int16_t seconds) {
  if (value < 0 || value > last) value = 0;
  if (Moment* moment = Find(emParam)) moment->*part = value;
  if (emParam != emParamRING) return LineError::kNone;
  // The product is 16-bit on purpose: hosts know a ring of ten hours as an overflow.
  std::int16_t product = 0;
  std::int32_t ring = 0;
  if (__builtin_mul_overflow(value, seconds, &product) ||
      __builtin_add_overflow(ring_, product, &ring)) {
    return LineError::kOverflow;
  }
  ring_ = ring;
  return LineError::kNone;
}

inline LineError clsLlamadaTRD::TryHoras(emParamTipoFecha emParam, std::int16_t value) {
  return WriteTimePart(emParam, &Moment::Horas, value, std::numeric_limits<std::int16_t>::max(),
                       3600);
}

inline LineError clsLlamadaTRD::TryMinutos(emParamTipoFecha emParam, std::int16_t value) {
  return WriteTimePart(emParam, &Moment::Minutos, value, 59, 60);
}

inline LineError clsLlamadaTRD::TrySegundos(emParamTipoFecha emParam, std::int16_t value) {
  return WriteTimePart(emParam, &Moment::Segundos, value, 59, 1);
}

}  // namespace conmuta
