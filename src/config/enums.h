// The public vocabulary of a switch configuration. Names and codes are those of the type library.
#pragma once

#include <cstdint>

#include "cable/connector_pair.h"

namespace conmuta {

// Kinds of data items (DATO). 0, 1 and 54 are bounds, never the kind of a valid slot.
enum emParamDato : std::int32_t {
  emNoParamDato = 0,
  emPrimerParamDato = 1,
  emParamFechaDia = 2,
  emParamFechaMes = 3,
  emParamFechaAnio = 4,
  emParamFechaHoras = 5,
  emParamFechaMinutos = 6,
  emParamFechaSegundos = 7,
  emParamDuracionDia = 8,
  emParamDuracionMes = 9,
  emParamDuracionAnio = 10,
  emParamDuracionHoras = 11,
  emParamDuracionMinutos = 12,
  emParamDuracionSegundos = 13,
  emParamRingHoras = 14,
  emParamRingMinutos = 15,
  emParamRingSegundos = 16,
  emParamCodigoCuenta = 17,
  emParamTelefonoEntrante = 18,
  emParamTelefonoSaliente = 19,
  emParamTelefonoInterExtension = 20,
  emParamTelefonoInterTroncal = 21,
  emParamTelefonoEntranteInicioTransferida = 22,
  emParamTelefonoEntranteFinTransferida = 23,
  emParamTelefonoSalienteInicioTransferida = 24,
  emParamTelefonoSalienteFinTransferida = 25,
  emParamTelefonoInterExtensionInicioTransferida = 26,
  emParamTelefonoInterExtensionFinTransferida = 27,
  emParamTelefonoInterTroncalInicioTransferida = 28,
  emParamTelefonoInterTroncalFinTransferida = 29,
  emParamTroncalEntrante = 30,
  emParamExtensionEntrante = 31,
  emParamTroncalSaliente = 32,
  emParamExtensionSaliente = 33,
  emParamExtension1InterExtension = 34,
  emParamExtension2InterExtension = 35,
  emParamTroncal1InterTroncal = 36,
  emParamTroncal2InterTroncal = 37,
  emParamTroncalEntranteInicioTransferida = 38,
  emParamExtensionEntranteInicioTransferida = 39,
  emParamTroncalEntranteFinTransferida = 40,
  emParamExtensionEntranteFinTransferida = 41,
  emParamTroncalSalienteInicioTransferida = 42,
  emParamExtensionSalienteInicioTransferida = 43,
  emParamTroncalSalienteFinTransferida = 44,
  emParamExtensionSalienteFinTransferida = 45,
  emParamExtension1InterExtensionInicioTransferida = 46,
  emParamExtension2InterExtensionInicioTransferida = 47,
  emParamExtension1InterExtensionFinTransferida = 48,
  emParamExtension2InterExtensionFinTransferida = 49,
  emParamTroncal1InterTroncalInicioTransferida = 50,
  emParamTroncal2InterTroncalInicioTransferida = 51,
  emParamTroncal1InterTroncalFinTransferida = 52,
  emParamTroncal2InterTroncalFinTransferida = 53,
  emUltimoParamDato = 54,
};

// Kinds of identifying constants (CTE). 0, 1 and 24 are bounds.
enum emParamDatoConstante : std::int32_t {
  emNoParamDatoConstante = 0,
  emPrimerParamDatoConstante = 1,
  emDatoCteIdentificadorHorarioMatutinoFecha = 2,
  emDatoCteIdentificadorHorarioMatutinoDuracion = 3,
  emDatoCteIdentEntrante = 4,
  emDatoCteIdentEntranteAND = 5,
  emDatoCteIdentEntranteOR = 6,
  emDatoCteIdentSaliente = 7,
  emDatoCteIdentSalienteAND = 8,
  emDatoCteIdentSalienteOR = 9,
  emDatoCteIdentInterExtension = 10,
  emDatoCteIdentInterExtensionAND = 11,
  emDatoCteIdentInterExtensionOR = 12,
  emDatoCteIdentInterTroncal = 13,
  emDatoCteIdentInterTroncalAND = 14,
  emDatoCteIdentInterTroncalOR = 15,
  emDatoCteIdentEntranteInicioTransferida = 16,
  emDatoCteIdentEntranteFinTransferida = 17,
  emDatoCteIdentSalienteInicioTransferida = 18,
  emDatoCteIdentSalienteFinTransferida = 19,
  emDatoCteIdentInterExtensionInicioTransferida = 20,
  emDatoCteIdentInterExtensionFinTransferida = 21,
  emDatoCteIdentInterTroncalInicioTransferida = 22,
  emDatoCteIdentInterTroncalFinTransferida = 23,
  emUltimoParamDatoConstante = 24,
};

// How a slot's item is read; 0 also marks a released slot.
enum emTipoDato : std::int32_t {
  emNoDefinido = 0,
  emValorNumerico = 1,
  emValorConstante = 2,
  emValorCadena = 3,
};

// Translation cases.
enum emCasos : std::int32_t {
  emNoCaso = 0,
  emCasoEstandar = 1,
  emCasoSamsungNX_820 = 2,
  emCasoNortelMeridian01 = 3,
  emCasoNortelNorstar0x32SMDR6 = 4,
  emCasoRestaFechasDuracion = 5,
};

// Format versions. Hosts rely on a new configuration carrying 3 although "current" is 1.
enum emVersionConfiguracion : std::int32_t {
  emNoVersion = 0,
  emVersionActual = 1,
  emVersion2_0 = 2,
  emVersion3_0 = 3,
};

// Failures of the configuration file operations.
enum emErroresConfig : std::int32_t {
  emNoErrorConfig = 0,
  emErrorConfigNoHay = 1500,
  emErrorNoHayArchivo = 1501,
  emErrorConfigDatosIncompletos = 1502,
  emErrorConfigExportar = 1503,
  emErrorConfigImportar = 1504,
  emErrorConfigAbrir = 1505,
  emErrorDesconocido = 1506,
};

}  // namespace conmuta
