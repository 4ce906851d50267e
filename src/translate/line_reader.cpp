#include "translate/line_reader.h"

namespace conmuta {

using namespace basConmuta;

void LineReader::ReadDate(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato year,
                          emParamDato month, emParamDato day) {
  call.Anio(group, LeeAnio(config_, year, line_, clock_), clock_);
  call.Mes(group, LeeMes(config_, month, line_, clock_), clock_);
  call.Dia(group, LeeDia(config_, day, line_, clock_), clock_);
}

void LineReader::ReadTime(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato hours,
                          emParamDato minutes, emParamDato seconds) {
  call.Horas(group, Narrow<std::int16_t>(LeeHoras(config_, hours, line_)));
  call.Minutos(group, Narrow<std::int16_t>(LeeMinutos(config_, minutes, line_)));
  call.Segundos(group, Narrow<std::int16_t>(LeeSegundos(config_, seconds, line_)));
}

void LineReader::ReadStart(clsLlamadaTRD& call) {
  ReadDate(call, emParamFecha, emParamFechaAnio, emParamFechaMes, emParamFechaDia);
  ReadTime(call, emParamFecha, emParamFechaHoras, emParamFechaMinutos, emParamFechaSegundos);
}

void LineReader::ReadDuration(clsLlamadaTRD& call) {
  ReadDate(call, emParamDuracion, emParamDuracionAnio, emParamDuracionMes, emParamDuracionDia);
  ReadDurationTime(call);
}

void LineReader::ReadDurationTime(clsLlamadaTRD& call) {
  ReadTime(call, emParamDuracion, emParamDuracionHoras, emParamDuracionMinutos,
           emParamDuracionSegundos);
}

void LineReader::ReadRing(clsLlamadaTRD& call) {
  ReadTime(call, emParamRING, emParamRingHoras, emParamRingMinutos, emParamRingSegundos);
}

void LineReader::ReadPhone(clsLlamadaTRD& call) {
  call.Telefono(ObtTelefono(config_, call.TipoLlamada(), call.Atributos(), line_, buffer_));
}

void LineReader::ReadParties(clsLlamadaTRD& call) {
  ReadParties(call, call.Atributos());
}

void LineReader::ReadParties(clsLlamadaTRD& call, emAtributosLlamadas attribute) {
  call.Emisor(ObtEmisor(config_, call.TipoLlamada(), attribute, line_, buffer_));
  call.Receptor(ObtReceptor(config_, call.TipoLlamada(), attribute, line_, buffer_));
}

void LineReader::ReadAccountCode(clsLlamadaTRD& call) {
  call.CodigoCuenta(LeeDatoTexto(emParamCodigoCuenta, config_, line_, buffer_));
}

}  // namespace conmuta
