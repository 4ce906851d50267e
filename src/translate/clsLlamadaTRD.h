// One translated call: when it began, how long it lasted and rang, who spoke with whom.
#pragma once

#include <array>
#include <cstdint>

#include "platform/calendar.h"
#include "platform/clock.h"
#include "translate/bounded_text.h"
#include "translate/enums.h"

namespace conmuta {

// Setters do not fail on bad values, they replace them; only arithmetic that does not fit its
// width raises (OverflowError).
class clsLlamadaTRD {
 public:
  explicit clsLlamadaTRD(const Clock& clock) : clock_(&clock) {}

  // Everything 0 or empty, TipoLlamada undefined.
  void Inicializa();

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
  void Horas(emParamTipoFecha emParam, std::int16_t value);
  void Minutos(emParamTipoFecha emParam, std::int16_t value);
  void Segundos(emParamTipoFecha emParam, std::int16_t value);

  // The same, dated by another clock.
  void Anio(emParamTipoFecha emParam, std::int16_t value, const Clock& clock);
  void Mes(emParamTipoFecha emParam, std::int16_t value, const Clock& clock);
  void Dia(emParamTipoFecha emParam, std::int16_t value, const Clock& clock);

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

  // Cut to 30 (numbers, account code) or 10 (parties) characters; NULs are dropped. What is read
  // lives until the record changes.
  TextView Telefono() const { return phone_; }
  void Telefono(TextView value) { phone_ = value; }
  TextView ExtensionTransferida() const { return transferred_to_; }
  void ExtensionTransferida(TextView value) { transferred_to_ = value; }
  TextView Emisor() const { return caller_; }
  void Emisor(TextView value) { caller_ = value; }
  TextView Receptor() const { return callee_; }
  void Receptor(TextView value) { callee_ = value; }
  TextView CodigoCuenta() const { return account_; }
  void CodigoCuenta(TextView value) { account_ = value; }

  // An afternoon hour of a 12-hour clock in 24-hour form: 1 to 11 gain 12.
  void AjustarHoraVespertina12Hrs24Hrs(emParamTipoFecha emParam);

  // Takes the duration's parts as a second moment and replaces them by the time from it to the
  // start, negative when it is the later one. Hosts rely on nothing happening when any of the
  // twelve parts is 0: that stands for one that was not read.
  void AjustaDuracionPorRestaFechas();

  // Whether the call can be billed: type defined, both parties and the date known.
  bool EsValido() const;

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
    std::int64_t Seconds() const;  // since day 0
  };

  // The moment that an index addresses, or null.
  Moment* Find(emParamTipoFecha emParam);
  const Moment* Find(emParamTipoFecha emParam) const;
  std::int16_t Read(emParamTipoFecha emParam, std::int16_t Moment::*part) const;

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

}  // namespace conmuta
